#include "app/SingleInstance.h"

#include "support/TestMain.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

// Reaches nobody; `onHandOver` is what the first process does meanwhile.
struct DeafChannel final : InstanceChannel {
    void listen(Handler) override {}
    void stopListening() override {}
    bool handOver(const LaunchRequest &) override
    {
        onHandOver();
        return false;
    }
    std::function<void()> onHandOver = [] {};
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
    DeafChannel m_channel;
    DataFolders folders() const { return {m_folder->path() + u"/data"_s, m_folder->path()}; }
    QString startOfAnother() { return outcomeOf(SingleInstance{folders(), m_channel}.start({}, {})); }

private Q_SLOTS:
    void init() { m_folder.emplace(); }

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
        m_channel.onHandOver = [&first] { first.reset(); };
        QCOMPARE(startOfAnother(), u"first"_s);
        m_channel.onHandOver = [] {};
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
