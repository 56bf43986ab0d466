#include "app/SingleInstance.h"

#include "support/TestMain.h"

#include <QDir>
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

using Role = SingleInstance::Role;

} // namespace

class SingleInstance_test : public QObject {
    Q_OBJECT

    std::optional<QTemporaryDir> m_folder;
    DataFolders folders() const { return {m_folder->path() + u"/data"_s, m_folder->path()}; }

private Q_SLOTS:
    void init() { m_folder.emplace(); }

    void handsOverToTheFirst()
    {
        QList<LaunchRequest> received;
        FakeChannel firstChannel;
        SingleInstance first{folders(), firstChannel};
        const auto firstRole = first.start({}, [&](const LaunchRequest &request) { received << request; });
        QVERIFY(firstRole && *firstRole == Role::First);

        const LaunchRequest request{.links = {u"orvane://task/1"_s}};
        FakeChannel secondChannel{&firstChannel};
        SingleInstance second{folders(), secondChannel};
        const auto secondRole = second.start(request, [](const auto &) {});
        QVERIFY(secondRole && *secondRole == Role::HandedOver);
        QCOMPARE(received, QList<LaunchRequest>{request});
    }

    void saysThatTheFolderIsOpen()
    {
        FakeChannel unreachable;
        SingleInstance first{folders(), unreachable};
        QVERIFY(first.start({}, {}));
        SingleInstance second{folders(), unreachable};
        const auto role = second.start({}, {});
        QVERIFY(!role);
        QCOMPARE(role.error().sentence, u"Orvane is already open with this data folder."_s);
    }

    void takesOverFromAFirstThatEndsMeanwhile()
    {
        FakeChannel firstChannel;
        std::optional<SingleInstance> first{std::in_place, folders(), firstChannel};
        QVERIFY(first->start({}, [](const auto &) {}));
        FakeChannel secondChannel{&firstChannel};
        secondChannel.onHandOver = [&first] { first.reset(); };
        SingleInstance second{folders(), secondChannel};
        const auto role = second.start({}, {});
        QVERIFY(role && *role == Role::First);
    }

    void letsTheFolderGo()
    {
        FakeChannel channel;
        SingleInstance first{folders(), channel};
        QVERIFY(first.start({}, {}));
        first.release();
        SingleInstance second{folders(), channel};
        const auto role = second.start({}, {});
        QVERIFY(role && *role == Role::First);
    }

    void letsTheFolderGoThoughAProgramItStartedLivesOn()
    {
        FakeChannel channel;
        SingleInstance first{folders(), channel};
        QVERIFY(first.start({}, {}));
        QProcess child;
        child.start(u"cat"_s);
        QVERIFY(child.waitForStarted());
        first.release();
        SingleInstance second{folders(), channel};
        const auto role = second.start({}, {});
        QVERIFY(role && *role == Role::First);
        child.closeWriteChannel();
        QVERIFY(child.waitForFinished());
    }

    void takesAFileThatWasLeftBehind()
    {
        QVERIFY(QDir{}.mkpath(folders().data));
        QFile left{folders().lock()};
        QVERIFY(left.open(QIODevice::WriteOnly) && left.write("1\norvane\n") > 0);
        left.close();
        FakeChannel channel;
        SingleInstance instance{folders(), channel};
        const auto role = instance.start({}, {});
        QVERIFY(role && *role == Role::First);
    }

    void refusesAFolderThatCannotBeWritten()
    {
        // A file where the folder should be stops root too.
        QFile file{folders().data};
        QVERIFY(file.open(QIODevice::WriteOnly));
        FakeChannel channel;
        SingleInstance instance{folders(), channel};
        const auto role = instance.start({}, {});
        QVERIFY(!role);
        QCOMPARE(role.error().sentence, u"Orvane cannot write its data in “%1”."_s.arg(folders().data));
    }
};

ORVANE_TEST(SingleInstance_test)
#include "SingleInstance_test.moc"
