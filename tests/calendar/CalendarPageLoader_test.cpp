#include "calendar/CalendarPageLoader.h"

#include "calendar/KWRepeatInstanceService.h"
#include "corvexkit/time/TimeText.h"
#include "model/events/NotificationNames.h"
#include "model/events/PendingDeletes.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/settings/KWCalendarDisplayConfigurationManager.h"
#include "model/store/Connection.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

/// Pages of a real account: what is on them, and when they are told again.
class CalendarPageLoader_test : public QObject {
    Q_OBJECT

    static constexpr const char *berlin = "Europe/Berlin";
    static constexpr Day monday{2030y / 5 / 6};

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<KWRepeatInstanceService> m_repeats;
    std::unique_ptr<CalendarPageLoader> m_loader;
    std::vector<CalendarPageContent> m_told;
    QStringList m_failures;
    int m_successes = 0;

    static CalendarPage week(Day day = monday)
    {
        return CalendarPage::around(day, CalendarPage::Kind::Week, Monday);
    }
    CalendarPage moved(int pages) const { return week().moved(pages, Monday); }

    /// "Water 06 09:00-10:00 *, Rent 07..08": by their start; "*" a later occurrence, "~" closed.
    QString items() const
    {
        if (m_told.empty()) return u"nothing"_s;
        QStringList texts;
        for (const CalendarItem &each : m_told.back().items) {
            const auto text = [&each](LocalTime time) {
                const QString whole = TimeText::fromLocalTime(time);
                return each.isAllDay ? whole.mid(8, 2) : whole.mid(8, 2) + u' ' + whole.mid(11, 5);
            };
            texts << each.title + u' ' + text(each.start) + u'-' + text(each.end) +
                         (each.occurrence ? u" *"_s : QString{}) + (each.isClosed ? u" ~"_s : QString{});
        }
        return texts.join(u", "_s);
    }
    void loadWeek()
    {
        m_loader->load(week());
        QTRY_VERIFY(m_successes > 0);
    }
    void configure(const std::function<void(KWCalendarDisplayConfigurationModel &)> &change)
    {
        KWCalendarDisplayConfigurationManager manager{m_store->kit().manager(), m_store->kit().center(),
                                                      m_store->userID()};
        auto configuration = manager.configuration();
        change(configuration);
        QVERIFY(manager.save(configuration));
    }
    /// Nothing is read or generated any more.
    void settle() const
    {
        QThreadPool &threads = m_store->kit().manager().threadPool();
        for (int i = 0; i < 20; ++i) {
            threads.waitForDone();
            QCoreApplication::processEvents();
        }
    }

private Q_SLOTS:
    void init()
    {
        m_told.clear();
        m_failures.clear();
        m_successes = 0;
        m_store = std::make_unique<StoreFixture>("2030-05-07 12:00", berlin);
        m_repeats = std::make_unique<KWRepeatInstanceService>(m_store->kit().manager(), m_store->account(),
                                                              m_store->kit().center(), m_store->clock);
        m_loader = std::make_unique<CalendarPageLoader>(m_store->kit(), *m_repeats, m_store->clock);
        connect(m_loader.get(), &CalendarPageLoader::loaded, this,
                [this](const CalendarPageContent &content) { m_told.push_back(content); });
        connect(m_loader.get(), &CalendarPageLoader::failed, this,
                [this](const QString &sentence) { m_failures << sentence; });
        connect(m_loader.get(), &CalendarPageLoader::succeeded, this, [this] { ++m_successes; });
    }
    void cleanup()
    {
        m_loader.reset();
        m_repeats.reset();
        m_store.reset();
    }

    // In a month, in whose cells a few find room.
    void putsHabitsBehindTheTasksOfADay()
    {
        saved(*m_store, [this](ObjectContext &context) {
            KWHabitModel habit;
            habit.userID = m_store->userID();
            habit.name = u"Read"_s;
            habit.repeatRule = u"FREQ=DAILY;INTERVAL=30"_s;
            context.insert<KWHabit>(habit);
        });
        aTask("Call", berlin).startingAt("2030-05-07 09:00").savedIn(*m_store);
        aTask("Rent", berlin).dueOn("2030-05-07").savedIn(*m_store);
        m_loader->load(CalendarPage::around(monday, CalendarPage::Kind::Month, Monday));
        QTRY_COMPARE(m_told.size(), 1U);
        QStringList byLane{{}, {}, {}};
        const CalendarPageContent &page = m_told.back();
        for (const LaneBar &each : page.bars)
            byLane[each.lane] += page.items[each.item].title;
        QCOMPARE(byLane.join(u' '), u"Rent Call Read"_s);
        QVERIFY(page.items.back().kind == CalendarItem::Kind::Task); // by their start
        settle();
        const std::size_t before = m_told.size();
        saved(*m_store, [this](ObjectContext &context) {
            KWHabit *habit = KWHabit::fetchAll(m_store->userID(), HabitScope::Active, context).first();
            habit->makeCheckInAtDateStamp(2030'05'07).updateValue(1);
        });
        QTRY_COMPARE(m_told.size(), before + 1);
        QVERIFY(items().contains(u"Read 07-08 * ~"_s));
    }

    void showsWhatStandsOnThePage()
    {
        const QString list = m_store->makeList(u"Home"_s);
        setSaved<KWProject>(*m_store, list, &KWProjectModel::color, u"#112233"_s);
        aTask("Call", berlin)
            .in(list)
            .startingAt("2030-05-08 09:00")
            .endingAt("2030-05-08 10:00")
            .savedIn(*m_store);
        aTask("Fair", berlin).dueFrom("2030-05-04", "2030-05-07").savedIn(*m_store);
        aTask("Done", berlin).dueOn("2030-05-08").completedAt("2030-05-07 08:00").savedIn(*m_store);
        aTask("Trip", berlin).withItem("Tickets", "2030-05-09 09:00").savedIn(*m_store);
        aTask("Water", berlin).startingAt("2030-05-05 08:00").inState(u"repeating"_s, "").savedIn(*m_store);
        loadWeek();
        QTRY_COMPARE(items(),
                     u"Fair 04-08, Water 06 08:00-06 08:00 *, Water 07 08:00-07 08:00 *, "
                     "Done 08-09 ~, Water 08 08:00-08 08:00 *, Call 08 09:00-08 10:00, "
                     "Water 09 08:00-09 08:00 *, Tickets 09 09:00-09 09:00, Water 10 08:00-10 08:00 *, "
                     "Water 11 08:00-11 08:00 *, Water 12 08:00-12 08:00 *"_s);
        const CalendarPageContent &content = m_told.back();
        QCOMPARE(content.page, week());
        QCOMPARE(content.today, monday + days{1});
        QCOMPARE(content.timed.size(), std::size_t{9});
        QCOMPARE(content.bars.size(), std::size_t{2});
        const auto call = std::ranges::find(content.items, u"Call"_s, &CalendarItem::title);
        QCOMPARE(call->color, u"#112233"_s);
        QCOMPARE(call->listID, list);

        configure(
            [](auto &configuration) { configuration.showsRepeats = configuration.showsCompleted = false; });
        QTRY_COMPARE(items(), u"Fair 04-08, Call 08 09:00-08 10:00, Tickets 09 09:00-09 09:00"_s);
        configure([](auto &configuration) { configuration.showsChecklistItems = false; });
        QTRY_COMPARE(items(), u"Fair 04-08, Call 08 09:00-08 10:00"_s);
        configure([&list](auto &configuration) { configuration.hiddenLists = {list}; });
        QTRY_COMPARE(items(), u"Fair 04-08"_s);
        configure([](auto &configuration) { configuration.hiddenLists.clear(); });
        QTRY_COMPARE(items(), u"Fair 04-08, Call 08 09:00-08 10:00"_s);
        m_store->kit().center().post(delayDeleteStatusChangedNotification, {},
                                     {{u"type"_s, int(KWDelayDeleteType::Tasks)},
                                      {u"status"_s, int(KWDelayDeleteStatus::Started)},
                                      {u"taskIDs"_s, QStringList{call->entityID}}});
        QTRY_COMPARE(items(), u"Fair 04-08"_s);
    }

    // The clocks go forward on 31 March: that day is an hour shorter.
    void keepsDaysWholeWhereTheClocksChange()
    {
        aTask("Fair", berlin)
            .dueFrom("2030-03-24", "2030-03-24")
            .with(&KWTaskModel::repeatRule, u"FREQ=WEEKLY"_s)
            .savedIn(*m_store);
        aTask("Night", berlin).startingAt("2030-03-30 23:00").endingAt("2030-03-31 05:00").savedIn(*m_store);
        m_loader->load(week(Day{2030y / 3 / 31}));
        QTRY_COMPARE(items(), u"Night 30 23:00-31 05:00, Fair 31-01 *"_s);
        QCOMPARE(m_told.back().bars, (std::vector<LaneBar>{{1, 6, 6, 0, false, false}}));
    }

    void followsWhatChanges()
    {
        const QString task = aTask("Water", berlin)
                                 .startingAt("2030-05-06 08:00")
                                 .inState(u"repeating"_s, "")
                                 .savedIn(*m_store);
        loadWeek();
        QTRY_COMPARE(items().count(u'*'), 6);
        setSaved<KWTask>(*m_store, task, &KWTaskModel::repeatRule, u"FREQ=DAILY;INTERVAL=3"_s);
        QTRY_COMPARE(items(),
                     u"Water 06 08:00-06 08:00, Water 09 08:00-09 08:00 *, Water 12 08:00-12 08:00 *"_s);
        setSaved<KWTask>(*m_store, task, &KWTaskModel::exDates, {at("2030-05-09 08:00", berlin)});
        QTRY_COMPARE(items(), u"Water 06 08:00-06 08:00, Water 12 08:00-12 08:00 *"_s);
        m_store->clock.setNow(at("2030-05-08 00:00", berlin));
        m_store->kit().center().post(KWNewDayComesNotification);
        QTRY_COMPARE(m_told.back().today, monday + days{2});

        settle();
        m_told.clear();
        m_successes = 0;
        aTask("Far away", berlin).dueOn("2031-01-01").savedIn(*m_store);
        QTRY_VERIFY(m_successes > 0);
        QVERIFY(m_told.empty()); // it is as it was
        m_loader->stop();
        setSaved<KWTask>(*m_store, task, &KWTaskModel::title, u"Feed"_s);
        settle();
        QVERIFY(m_told.empty());
    }

    void theLatestPageWins()
    {
        for (int pages = 1; pages <= 5; ++pages)
            m_loader->load(moved(pages));
        QTRY_VERIFY(m_successes > 0);
        settle();
        QCOMPARE(m_told.size(), std::size_t{1});
        QCOMPARE(m_told.back().page, moved(5));
    }

    void turnsAtOnceToThePagesBesideIt()
    {
        const QString task = aTask("Bins", berlin).dueOn("2030-05-14").savedIn(*m_store);
        loadWeek();
        settle();
        m_successes = 0;
        m_loader->load(moved(1));
        QCOMPARE(items(), u"Bins 14-15"_s);
        QCOMPARE(m_successes, 1);
        m_loader->load(moved(0));
        QCOMPARE(m_told.back().page, week());
        settle();
        setSaved<KWTask>(*m_store, task, &KWTaskModel::title, u"Jars"_s); // what was read is no longer true
        m_loader->load(moved(1));
        QTRY_COMPARE(items(), u"Jars 14-15"_s);
        QCOMPARE(m_told.size(), std::size_t{4});
    }

    void saysWhyNothingCanBeRead()
    {
        loadWeek();
        settle();
        saved(*m_store, [](ObjectContext &context) {
            context.bulkWriting().execute("ALTER TABLE checklistItems RENAME TO elsewhere");
        });
        m_store->kit().center().post(KWDataDidChangeOutsideMainAppNotification);
        QTRY_COMPARE(m_failures.size(), 1);
        QVERIFY(!m_failures.first().isEmpty());
        saved(*m_store, [](ObjectContext &context) {
            context.bulkWriting().execute("ALTER TABLE elsewhere RENAME TO checklistItems");
        });
        m_successes = 0;
        m_store->kit().center().post(KWDataDidChangeOutsideMainAppNotification);
        QTRY_VERIFY(m_successes > 0);
        QCOMPARE(m_failures.size(), 1);
    }
};

ORVANE_TEST(CalendarPageLoader_test)
#include "CalendarPageLoader_test.moc"
