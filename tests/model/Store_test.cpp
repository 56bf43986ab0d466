#include "model/store/Store.h"

#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "model/store/Migrations.h"
#include "support/Files.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QDirIterator>
#include <QTemporaryDir>

#include <atomic>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int taskCount = 60;
constexpr qsizetype pageSize = 4096;

void execute(const QString &path, const char *sql)
{
    Connection{path.toStdString(), Connection::Access::ReadWriteCreate}.execute(sql);
}

/// Every file and folder below `folder`, with its bytes; without what holds no data: the shared memory of
/// the log and a log without entries.
QMap<QString, QByteArray> contentsOf(const QString &folder)
{
    QMap<QString, QByteArray> contents;
    QDirIterator files{folder, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories};
    while (files.hasNext())
        if (const QString path = files.next();
            !path.endsWith(u"-shm") && !(path.endsWith(u"-wal") && files.fileInfo().size() == 0))
            contents.insert(path, bytesOf(path));
    return contents;
}

/// Another user than root for as long as it lives, if it is wanted: root may write everywhere.
class WithoutPrivileges {
public:
    explicit WithoutPrivileges(bool isWanted) : m_isOther{isWanted && geteuid() == 0}
    {
        if (m_isOther && setresuid(65534, 65534, 0) != 0) qFatal("The user cannot be changed");
    }
    ~WithoutPrivileges()
    {
        if (m_isOther && setresuid(0, 0, 0) != 0) qFatal("The user cannot be changed back");
    }

private:
    const bool m_isOther;
};

QString schemaOf(const QString &path)
{
    Connection connection{path.toStdString(), Connection::Access::ReadWrite};
    auto schema = connection.prepare("SELECT group_concat(name || ' ' || sql), user_version "
                                     "FROM (SELECT * FROM sqlite_schema ORDER BY name), pragma_user_version");
    schema->executeStep();
    return QString::fromUtf8(schema->getColumn(0).getText()) + u' ' +
           QString::number(schema->getColumn(1).getInt());
}

} // namespace

using Damage = std::function<void(const QString &path)>;

class Store_test : public QObject {
    Q_OBJECT

    const ManualClock m_clock{"2030-05-01 09:00"};
    QByteArray m_sound; // the bytes of a store with tasks
    std::unique_ptr<QTemporaryDir> m_folder;

    QString path() const { return m_folder->filePath(u"store.sqlite"_s); }
    Store::Opening open() const { return Store::open(path(), m_clock); }

    void fill(Store &store) const
    {
        const auto context = std::move(*store.makeContext());
        KWProject &list = KWProject::createProjectNamed(u"Home"_s, u"user"_s, *context);
        for (int i = 0; i < taskCount; ++i) {
            KWTaskModel task;
            task.projectID = list.sid();
            task.title = u"Task %1"_s.arg(i);
            task.content = QString{900, u'x'};
            context->insert<KWTask>(task);
        }
        if (!context->save()) qFatal("The store cannot be filled");
    }

    qsizetype storedTasks(Store &store) const { return (*store.makeContext())->models<KWTask>({}).size(); }

private Q_SLOTS:
    void initTestCase()
    {
        init();
        fill(*open().store);
        m_sound = bytesOf(path());
        QVERIFY(m_sound.size() > 10 * pageSize);
    }

    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void makesWhatIsMissing()
    {
        write(path(), {});
        for (const QString &each : {m_folder->filePath(u"a/b c/ü/store.sqlite"_s), path()})
            QCOMPARE(storedTasks(*Store::open(each, m_clock).store), 0);
        QVERIFY(QFile::exists(m_folder->filePath(u"a/b c/ü/store.sqlite"_s)));
    }

    void leavesWhatItCannotOpenAsItIs_data()
    {
        QTest::addColumn<Damage>("damage");
        QTest::addColumn<StoreProblem>("problem");
        const auto row = [](const char *name, StoreProblem problem, Damage damage) {
            QTest::newRow(name) << std::move(damage) << problem;
        };
        using enum StoreProblem;
        row("a text", NotAStore,
            [](const QString &path) { write(path, QByteArray{"Dear diary\n"}.repeated(50)); });
        row("a folder", NotAStore, [](const QString &path) { QVERIFY(QDir{}.mkpath(path + u"/inside"_s)); });
        row("the store of another program", NotAStore, [](const QString &path) {
            execute(path, "CREATE TABLE tasks (title); PRAGMA user_version = 1");
        });
        row("a newer version", NewerVersion, [this](const QString &path) {
            write(path, m_sound);
            execute(path, "PRAGMA user_version = 99; ALTER TABLE tasks RENAME TO duties");
        });
        row("a newer version that is still in the log", NewerVersion, [this](const QString &path) {
            const QString other = m_folder->filePath(u"other.sqlite"_s);
            write(other, m_sound);
            Connection writer{other.toStdString(), Connection::Access::ReadWrite};
            writer.execute("PRAGMA wal_autocheckpoint = 0; PRAGMA user_version = 99");
            write(path, bytesOf(other));
            write(path + u"-wal"_s, bytesOf(other + u"-wal"_s));
            QVERIFY(bytesOf(path + u"-wal"_s).size() > pageSize);
        });
        row("nothing behind a header without a log", Damaged, [this](const QString &path) {
            QByteArray bytes = m_sound.left(100).leftJustified(m_sound.size(), 'x');
            bytes[18] = bytes[19] = 1; // SQLite file format, section 1.3.3
            write(path, bytes);
        });
        row("a table too few", Damaged, [this](const QString &path) {
            write(path, m_sound);
            execute(path, "DROP TABLE tags");
        });
        row("foreign tables under our mark", Damaged, [](const QString &path) {
            execute(path, "PRAGMA application_id = 0x4f525641; CREATE TABLE users (name)");
        });
        const auto makeFolder = [](const QString &path, int permissions) {
            const QString folder = QFileInfo{path}.path();
            QDir{}.mkpath(folder);
            QFile::setPermissions(folder, QFile::Permissions{permissions});
        };
        row("a file for a folder", CannotWrite,
            [](const QString &path) { write(QFileInfo{path}.path(), "x"); });
        row("a folder that is locked", CannotWrite, [=](const QString &path) { makeFolder(path, 0x5555); });
        row("a folder that cannot be made", CannotWrite, [](const QString &) {});
        row("a file that is locked", CannotWrite, [=, this](const QString &path) {
            makeFolder(path, 0x7777);
            write(path, m_sound);
            QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadOther);
        });
    }

    void leavesWhatItCannotOpenAsItIs()
    {
        QFETCH(const Damage, damage);
        QFETCH(const StoreProblem, problem);
        const bool isLocked = problem == StoreProblem::CannotWrite;
        const QString path = isLocked ? m_folder->filePath(u"home/store.sqlite"_s) : this->path();
        QFile::setPermissions(m_folder->path(), QFile::Permissions{0x7755});
        damage(path);
        if (isLocked && geteuid() != 0)
            QFile::setPermissions(m_folder->path(), QFile::ReadOwner | QFile::ExeOwner);
        const auto before = contentsOf(m_folder->path());
        {
            const WithoutPrivileges other{isLocked};
            const Store::Opening opening = Store::open(path, m_clock);
            QVERIFY(!opening.store);
            QCOMPARE(opening.problem, problem);
            const QString place = isLocked ? QFileInfo{path}.path() : path;
            QVERIFY2(opening.sentence.contains(place) && opening.sentence.endsWith(u'.'),
                     qUtf8Printable(opening.sentence));
        }
        for (const QString &folder : {m_folder->path(), QFileInfo{path}.path()})
            QFile::setPermissions(folder, QFile::Permissions{0x7755});
        QVERIFY(contentsOf(m_folder->path()) == before);
    }

    void leavesAStoreCutAnywhereAsItIs()
    {
        for (qsizetype size = 1; size < m_sound.size(); size += size < 200 ? 33 : pageSize / 2 - 1) {
            const QByteArray cut = m_sound.left(size);
            write(path(), cut);
            const Store::Opening opening = open();
            const StoreProblem expected = size < 100 ? StoreProblem::NotAStore : StoreProblem::Damaged;
            QVERIFY2(!opening.store && opening.problem == expected, qPrintable(QString::number(size)));
            QCOMPARE(bytesOf(path()), cut);
        }
    }

    void standsAFlippedByteInAnyPage()
    {
        int refused = 0;
        for (qsizetype page = 0; page < m_sound.size(); page += pageSize) {
            QByteArray flipped = m_sound;
            const qsizetype typeOfPage = page == 0 ? 100 : page;
            flipped[typeOfPage] = char(flipped[typeOfPage] ^ 0x55);
            write(path(), flipped);
            const Store::Opening opening = open();
            if (opening.store) {
                QVERIFY(storedTasks(*opening.store) <= taskCount);
                continue;
            }
            ++refused;
            QCOMPARE(opening.problem, StoreProblem::Damaged);
            QCOMPARE(bytesOf(path()), flipped);
        }
        QVERIFY(refused >= 7); // the root of every table is read
    }

    // Two of them in the same second, too.
    void setsADamagedStoreAsideWithAllItsParts()
    {
        const QStringList parts{QString{}, u"-wal"_s, u"-shm"_s};
        const QStringList names{u"store.damaged-2030-05-01T090000.sqlite"_s,
                                u"store.damaged-2030-05-01T090000-2.sqlite"_s};
        for (const QString &name : names) {
            for (const QString &part : parts)
                write(path() + part, (name + part).toUtf8());
            QCOMPARE(*Store::setAside(path(), m_clock.localNow()), name);
        }
        for (const QString &part : parts)
            for (const QString &name : names)
                QCOMPARE(bytesOf(m_folder->filePath(name + part)), (name + part).toUtf8());
        QCOMPARE(contentsOf(m_folder->path()).size(), 4); // the shared memory not counted

        const QString taken = m_folder->filePath(names.first());
        write(path() + u"-wal"_s, "the latest saves");
        write(path(), "the rest");
        QVERIFY(QFile::remove(taken + u"-wal"_s) && !Store::move(path(), taken));
        QCOMPARE(bytesOf(path() + u"-wal"_s), "the latest saves");
    }

    void bringsEveryOldVersionUpToDate()
    {
        QVERIFY(open().store);
        const QString expected = schemaOf(path());
        for (int version = 0; version <= Migrations::currentVersion(); ++version) {
            const QString old = m_folder->filePath(u"version%1.sqlite"_s.arg(version));
            {
                Connection connection{old.toStdString(), Connection::Access::ReadWriteCreate};
                connection.execute("PRAGMA application_id = 0x4f525641");
                Migrations::applyUpTo(version, connection);
                QCOMPARE(connection.number("PRAGMA user_version"), version);
            }
            QVERIFY(Store::open(old, m_clock).store);
            QCOMPARE(schemaOf(old), expected);
        }
    }

    void leavesNoTraceOfAMigrationThatFails()
    {
        execute(path(), "CREATE TABLE checklistItems (title)"); // in the way of the last statement
        Connection connection{path().toStdString(), Connection::Access::ReadWrite};
        QVERIFY_EXCEPTION_THROWN(Migrations::apply(connection), SQLite::Exception);
        QCOMPARE(connection.number("SELECT count(*) FROM sqlite_schema"), 1);
        QCOMPARE(connection.number("PRAGMA user_version"), 0);
    }

    void opensAFreshStoreFromManyThreadsAtOnce()
    {
        for (int round = 0; round < 10; ++round) {
            const QString fresh = m_folder->filePath(u"fresh%1.sqlite"_s.arg(round));
            std::atomic_int opened = 0;
            std::vector<std::jthread> threads;
            for (int i = 0; i < 4; ++i)
                threads.emplace_back([&] {
                    const Store::Opening opening = Store::open(fresh, m_clock);
                    if (!opening.store) return;
                    fill(*opening.store);
                    ++opened;
                });
            threads.clear(); // joins them
            QCOMPARE(opened.load(), 4);
            QCOMPARE(storedTasks(*Store::open(fresh, m_clock).store), 4 * taskCount);
        }
    }
};

ORVANE_TEST(Store_test)
#include "Store_test.moc"
