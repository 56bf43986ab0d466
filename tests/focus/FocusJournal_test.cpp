#include "focus/FocusJournal.h"

#include "model/settings/KWUserDefaults.h"
#include "support/LogRecorder.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace std::chrono;

class FocusJournal_test : public QObject {
    Q_OBJECT

    using Sessions = QList<FocusJournal::Session>;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<KWUserDefaults> m_defaults;
    std::unique_ptr<FocusJournal> m_journal;

    /// A new run of the program, which knows what is on disk.
    FocusJournal &restart()
    {
        m_journal.reset();
        m_defaults = std::make_unique<KWUserDefaults>(m_folder->path());
        m_journal = std::make_unique<FocusJournal>(*m_defaults);
        return *m_journal;
    }
    QStringList aside() const { return m_defaults->value(Settings::unreadableFocusSessions); }

    static Instant at(int minute) { return Instant{sys_days{2030y / May / 1} + 9h + minutes{minute}}; }
    /// Ten minutes of a task, two of a pause, and ten of a habit.
    static FocusJournal::Session session(const QString &userID, int minute,
                                         KWFocusType type = KWFocusTypePomo,
                                         KWPomoStatus status = KWPomoStatusCompleted)
    {
        const QList<FocusStretch> stretches{
            {.startDate = at(minute), .endDate = at(minute + 10), .target = FocusTarget::task(u"t-1"_s)},
            {.startDate = at(minute + 10), .endDate = at(minute + 12), .isPause = true},
            {.startDate = at(minute + 12),
             .endDate = at(minute + 22),
             .target = FocusTarget::habit(u"h,2"_s)}};
        return {.userID = userID,
                .record = {.startDate = at(minute),
                           .endDate = at(minute + 22),
                           .type = type,
                           .status = status,
                           .pauseDuration = 120,
                           .stretches = stretches}};
    }

    // JSON that is easier to read.
    static QString quoted(const char *text) { return QString::fromLatin1(text).replace(u'\'', u'"'); }

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        restart();
    }

    void keepsEachSessionOverRestarts()
    {
        const Sessions waiting{session(u"u-1"_s, 0), session(u"u-1"_s, 30, KWFocusTypeStopwatch),
                               session(u"u-2"_s, 0, KWFocusTypePomo, KWPomoStatusAbandoned)};
        for (const auto &each : waiting)
            QVERIFY(m_journal->keepWaiting(each));
        m_journal->keepRunning(session(u"u-1"_s, 60));
        restart();
        QCOMPARE(m_journal->waiting(), waiting);
        QCOMPARE(m_journal->left(), Sessions{session(u"u-1"_s, 60)});
        // Another Pomo takes the place of nothing.
        m_journal->keepRunning(session(u"u-1"_s, 90));
        restart();
        QCOMPARE(m_journal->left(), Sessions({session(u"u-1"_s, 60), session(u"u-1"_s, 90)}));
        m_journal->remove(waiting.first());
        m_journal->remove(session(u"u-1"_s, 60));
        restart();
        QCOMPARE(m_journal->waiting(), waiting.sliced(1));
        QCOMPARE(m_journal->left(), Sessions{session(u"u-1"_s, 90)});
    }

    void hasASessionOnce()
    {
        m_journal->keepRunning(session(u"u-1"_s, 0));
        FocusJournal::Session longer = session(u"u-1"_s, 0);
        longer.record.endDate += 3min;
        QVERIFY(m_journal->keepWaiting(session(u"u-1"_s, 0)) && m_journal->keepWaiting(longer));
        restart();
        QVERIFY(m_journal->left().isEmpty());
        QCOMPARE(m_journal->waiting(), Sessions{longer});
        m_journal->keepRunning(session(u"u-1"_s, 60));
        restart();
        QVERIFY(m_journal->keepWaiting(session(u"u-1"_s, 60)));
        QVERIFY(m_journal->left().isEmpty());
        QCOMPARE(m_journal->waiting().size(), 2);
    }

    void dropsWhatRan()
    {
        QVERIFY(m_journal->keepWaiting(session(u"u-1"_s, 0)));
        m_journal->keepRunning(session(u"u-1"_s, 60));
        m_journal->dropRunning();
        restart();
        QVERIFY(m_journal->left().isEmpty());
        QCOMPARE(m_journal->waiting().size(), 1);
    }

    void readsWhatRanAsOlderVersionsWroteIt()
    {
        m_defaults->set(Settings::runningPomo,
                        quoted("{'user':'u-1','start':'2030-05-01T09:00:00.000Z','stretches':["
                               "{'start':'2030-05-01T09:00:00.000Z','end':'2030-05-01T09:10:00.000Z',"
                               "'target':'task:t-1','pause':false}]}"));
        m_defaults->synchronise();
        restart();
        QCOMPARE(m_journal->left().size(), 1);
        const FocusRecord record = m_journal->left().first().record;
        QVERIFY(record.startDate == at(0) && record.endDate == at(10));
        QVERIFY(record.type == KWFocusTypePomo && record.status == KWPomoStatusCompleted);
        QCOMPARE(record.stretches.first().target, FocusTarget::task(u"t-1"_s));
    }

    void putsAsideOnceWhatCannotBeRead_data()
    {
        QTest::addColumn<QString>("text");
        const QString stretch = quoted("{'start':'2030-05-01T09:10:00.000Z','end':'%1','target':''}");
        const QString pomo = quoted("{'user':'%1','start':'2030-05-01T09:00:00.000Z'%2,'stretches':[%3]}");
        QTest::newRow("half a text") << quoted("{'user':'u-1','sta");
        QTest::newRow("no JSON") << u"Water the plants"_s;
        QTest::newRow("no user") << pomo.arg(QString{}, QString{}, QString{});
        QTest::newRow("no start") << quoted("{'user':'u-1','stretches':[]}");
        QTest::newRow("a stretch without an end") << pomo.arg(u"u-1"_s, QString{}, stretch.arg(u"soon"_s));
        QTest::newRow("a stretch that ends before it starts")
            << pomo.arg(u"u-1"_s, QString{}, stretch.arg(u"2030-05-01T09:09:00.000Z"_s));
        QTest::newRow("an end before the start")
            << pomo.arg(u"u-1"_s, quoted(",'end':'2030-05-01T08:00:00.000Z'"), QString{});
        QTest::newRow("another kind") << pomo.arg(u"u-1"_s, quoted(",'type':7"), QString{});
        QTest::newRow("another status") << pomo.arg(u"u-1"_s, quoted(",'status':'done'"), QString{});
    }
    void putsAsideOnceWhatCannotBeRead()
    {
        QFETCH(QString, text);
        QVERIFY(m_journal->keepWaiting(session(u"u-1"_s, 0)));
        QStringList lines = m_defaults->value(Settings::focusSessionsNotStored);
        lines.prepend(text);
        m_defaults->set(Settings::focusSessionsNotStored, lines);
        m_defaults->set(Settings::runningPomo, text);
        m_defaults->synchronise();
        for (int start = 0; start < 2; ++start) {
            LogRecorder log;
            restart();
            QCOMPARE(log.lines(u"focus"_s).size(), start == 0 ? 2 : 0);
            QVERIFY(m_journal->left().isEmpty());
            QCOMPARE(m_journal->waiting(), Sessions{session(u"u-1"_s, 0)});
            QCOMPARE(aside(), QStringList({text, text}));
        }
    }
};

ORVANE_TEST(FocusJournal_test)
#include "FocusJournal_test.moc"
