#include "app/SingleInstance.h"

#include "support/Files.h"
#include "support/TestMain.h"

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

} // namespace

class SingleInstance_test : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    DataFolders m_folders{m_folder.filePath(u"data"_s), m_folder.path()};
    DeafChannel m_channel;

    QString startOfAnother(const DataFolders &folders)
    {
        const auto role = SingleInstance{folders, m_channel}.start({}, {});
        if (!role) return role.error().sentence;
        return *role == SingleInstance::Role::First ? u"first"_s : u"handed over"_s;
    }

private Q_SLOTS:
    void isTheFirstOnceTheFirstHasEnded()
    {
        std::optional<SingleInstance> first{std::in_place, m_folders, m_channel};
        QVERIFY(first->start({}, {}));
        QCOMPARE(startOfAnother(m_folders), u"Orvane is already open with this data folder."_s);
        m_channel.onHandOver = [&first] { first.reset(); }; // meanwhile
        QCOMPARE(startOfAnother(m_folders), u"first"_s);
    }

    void letsTheFolderGoThoughAProgramItStartedLivesOn()
    {
        SingleInstance first{m_folders, m_channel};
        QVERIFY(first.start({}, {}));
        QProcess child;
        child.start(u"cat"_s);
        QVERIFY(child.waitForStarted());
        first.release();
        QCOMPARE(startOfAnother(m_folders), u"first"_s);
        child.closeWriteChannel();
        QVERIFY(child.waitForFinished());
    }

    void refusesAFolderThatCannotBeWritten()
    {
        const DataFolders folders{m_folder.filePath(u"file"_s), m_folder.path()};
        write(folders.data, {}); // stops root too
        QCOMPARE(startOfAnother(folders), u"Orvane cannot write its data in “%1”."_s.arg(folders.data));
    }
};

ORVANE_TEST(SingleInstance_test)
#include "SingleInstance_test.moc"
