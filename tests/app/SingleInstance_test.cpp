#include "app/SingleInstance.h"

#include "support/TestMain.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

// Reaches the first process when there is one; `onHandOver` is what that one does meanwhile.
struct FakeChannel final : InstanceChannel {
    explicit FakeChannel(FakeChannel *first = nullptr) : m_first{first} {}

    void listen(Handler handler) override { m_handler = std::move(handler); }
    void stopListening() override { m_handler = nullptr; }
    bool handOver(const LaunchRequest &request) override
    {
        onHandOver();
        if (!m_first || !m_first->m_handler) return false;
        m_first->m_handler(request);
        return true;
    }

    std::function<void()> onHandOver = [] {};

private:
    FakeChannel *m_first;
    Handler m_handler;
};

QString outcomeOf(const Result<SingleInstance::Role> &role)
{
    if (!role) return role.error().sentence;
    return *role == SingleInstance::Role::First ? u"first"_s : u"handed over"_s;
}

} // namespace

class SingleInstance_test : public QObject {
    Q_OBJECT

    std::optional<QTemporaryDir> m_folder;
    FakeChannel m_channel;
    DataFolders folders() const { return {m_folder->path() + u"/data"_s, m_folder->path()}; }

    QString startOfAnother() const
    {
        FakeChannel unreachable;
        return outcomeOf(SingleInstance{folders(), unreachable}.start({}, {}));
    }

private Q_SLOTS:
    void init() { m_folder.emplace(); }

    void handsOverToTheFirst()
    {
        QList<LaunchRequest> received;
        SingleInstance first{folders(), m_channel};
        const auto role = first.start({}, [&](const LaunchRequest &request) { received << request; });
        QCOMPARE(outcomeOf(role), u"first"_s);

        const LaunchRequest request{.links = {u"orvane://task/1"_s}};
        FakeChannel secondChannel{&m_channel};
        SingleInstance second{folders(), secondChannel};
        QCOMPARE(outcomeOf(second.start(request, {})), u"handed over"_s);
        QCOMPARE(received, QList<LaunchRequest>{request});
    }

    void saysThatTheFolderIsOpen()
    {
        SingleInstance first{folders(), m_channel};
        QVERIFY(first.start({}, {}));
        QCOMPARE(startOfAnother(), u"Orvane is already open with this data folder."_s);
    }

    void takesOverFromAFirstThatEndsMeanwhile()
    {
        std::optional<SingleInstance> first{std::in_place, folders(), m_channel};
        QVERIFY(first->start({}, {}));
        FakeChannel secondChannel;
        secondChannel.onHandOver = [&first] { first.reset(); };
        SingleInstance second{folders(), secondChannel};
        QCOMPARE(outcomeOf(second.start({}, {})), u"first"_s);
    }

    void letsTheFolderGoThoughAProgramItStartedLivesOn()
    {
        SingleInstance first{folders(), m_channel};
        QVERIFY(first.start({}, {}));
        QProcess child;
        child.start(u"cat"_s);
        QVERIFY(child.waitForStarted());
        first.release();
        QCOMPARE(startOfAnother(), u"first"_s);
        child.closeWriteChannel();
        QVERIFY(child.waitForFinished());
    }

    void refusesAFolderThatCannotBeWritten()
    {
        // A file where the folder should be stops root too.
        QFile file{folders().data};
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(startOfAnother(), u"Orvane cannot write its data in “%1”."_s.arg(folders().data));
    }
};

ORVANE_TEST(SingleInstance_test)
#include "SingleInstance_test.moc"
