#include "RowText.h"
#include "calendar/KWRepeatInstanceService.h"
#include "lists/KWTaskListService.h"
#include "lists/SidebarRecounts.h"
#include "lists/TaskArranger.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/settings/KWCalendarDisplayConfigurationManager.h"
#include "model/store/CalSubscriptionEditor.h"
#include "model/store/KWProjectListCountFetcher.h"
#include "support/Answers.h"
#include "support/EventBuilder.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using std::chrono::days;

/// Events of subscribed calendars among the tasks, and alone. It is Wednesday, 1 May 2030.
class EventsInLists_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<KWTaskListService> m_service;
    QString m_calendar;

    KWTaskListService &list() { return *m_service; }
    QString shown() { return RowText::textOf(flatRows(list().categories(), list().folded())); }
    CalSubscriptionEditor calendars() { return {m_store->kit().manager(), m_store->userID()}; }
    EventBuilder event(const char *title) const { return anEvent(title).in(m_calendar); }
    // As what reads a feed does when it has.
    void announceEvents() { m_store->kit().center().post(KWCalSubDidPullEventsNotification, m_calendar); }
    static KWListIdentifier smart(const KWSmartProject &list)
    {
        return KWListIdentifier::smartProject(list.identifier());
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_calendar = makeCalendar(*m_store, "Sports");
        m_service = std::make_unique<KWTaskListService>(m_store->kit().manager(), m_store->account(),
                                                        m_store->kit().center(), m_store->kit().bus());
    }
    void cleanup()
    {
        m_service.reset();
        m_store.reset();
    }

    void standAmongTheTasksByTime()
    {
        aTask("Early").startingAt("2030-05-01 08:00").savedIn(*m_store);
        aTask("Evening").startingAt("2030-05-01 20:00").savedIn(*m_store);
        aTask("Late").dueOn("2030-04-29").savedIn(*m_store);
        event("Match").from("2030-05-01 18:00", "2030-05-01 20:00").savedIn(*m_store);
        event("Tour").on("2030-04-30", "2030-05-02").savedIn(*m_store);
        event("Final").on("2030-05-03").savedIn(*m_store);
        list().select(KWListIdentifier::todayProject());
        QCOMPARE(shown(), u"[Overdue 1] Late [Today 4] Tour Early Match Evening"_s);
        list().select(smart(KWSmartProject::tomorrow()));
        QCOMPARE(shown(), u"[Tomorrow 1] Tour"_s);
        QCOMPARE(flatRows(list().categories(), {}).at(0).holds, TaskListRow::Holds::Events);
        list().select(smart(KWSmartProject::next7days()));
        QCOMPARE(shown(), u"[Overdue 1] Late [Today 4] Tour Early Match Evening [Friday 1] Final"_s);

        list().select(KWListIdentifier::todayProject());
        QVERIFY(list().setSortType(KWTaskSortTypePriority));
        QCOMPARE(shown(), u"[None 3] Late Early Evening [Events 2] Tour Match"_s);
        const QList<TaskListRow> rows = flatRows(list().categories(), {});
        QCOMPARE(rows.at(0).holds, TaskListRow::Holds::Tasks);
        QCOMPARE(rows.at(4).holds, TaskListRow::Holds::Events);
        const KWTaskCategory &events = list().categories().last();
        QVERIFY(events.isCalSubscription() && !events.isTaskKind());
        const TaskDropPlace there{1, {}, {}};
        QVERIFY(TaskArranger::hindrance({list().categories().first().models().first().sid}, there, list())
                    .contains(u"Only events"));
    }

    void comeAndGoWithTheirCalendar()
    {
        list().select(KWListIdentifier::todayProject());
        const QString id = event("Match").on("2030-05-01").savedIn(*m_store);
        announceEvents();
        QCOMPARE(shown(), u"[Today 1] Match"_s);
        KWCalendarDisplayConfigurationManager hiding{m_store->kit().manager(), m_store->kit().center(),
                                                     m_store->userID()};
        QVERIFY(hiding.setShowsCalendar(false, m_calendar));
        QCOMPARE(shown(), QString{});
        QVERIFY(hiding.setShowsCalendar(true, m_calendar));
        QCOMPARE(shown(), u"[Today 1] Match"_s);
        QVERIFY(calendars().setColor(m_calendar, u"#e5484d"_s));
        QCOMPARE(list().rows().first().color, u"#e5484d"_s);
        const Result<UndoToken> removed = calendars().remove(m_calendar);
        QCOMPARE(shown(), QString{});
        QVERIFY(removed->undo(m_store->kit().manager()));
        QCOMPARE(shown(), u"[Today 1] Match"_s);
        m_store->clock.advance(days{1});
        m_store->kit().center().post(KWNewDayComesNotification);
        QCOMPARE(shown(), QString{});
    }

    void canBeLeftOutOfAList()
    {
        event("Match").on("2030-05-01").savedIn(*m_store);
        list().select(KWListIdentifier::todayProject());
        QVERIFY(list().shown().mayShowEvents() && list().showsEvents());
        QVERIFY(list().setShowsEvents(false));
        QCOMPARE(shown(), QString{});
        list().select(smart(KWSmartProject::next7days()));
        QCOMPARE(shown(), u"[Today 1] Match"_s); // each remembers it for itself
        list().select(KWListIdentifier::todayProject());
        QCOMPARE(shown(), QString{});
        list().select(smart(KWSmartProject::all()));
        QVERIFY(!list().shown().mayShowEvents());
    }

    // Of a list that is long, a saved task is read alone.
    void stayWhereTheyAreWhenATaskIsSaved()
    {
        QString task;
        for (int i = 0; i < 150; ++i)
            task = aTask("Water").startingAt("2030-05-01 10:00").savedIn(*m_store);
        event("Match").from("2030-05-01 09:00", "2030-05-01 09:30").savedIn(*m_store);
        list().select(KWListIdentifier::todayProject());
        QTRY_COMPARE(list().rows().size(), 151);
        setSaved<KWTask>(*m_store, task, &KWTaskModel::title, u"Feed"_s);
        QCOMPARE(list().rows().size(), 151);
        QCOMPARE(list().rows().first().title, u"Match"_s);
        QVERIFY(std::ranges::any_of(list().rows(), [](const auto &each) { return each.title == u"Feed"; }));
    }

    void aCalendarHasItsDays()
    {
        event("Past").on("2030-04-30").savedIn(*m_store);
        event("Tour").on("2030-04-30", "2030-05-01").savedIn(*m_store);
        event("Match").from("2030-05-02 18:00", "2030-05-02 20:00").savedIn(*m_store);
        event("Talk").from("2030-05-02 10:00", "2030-05-02 11:00").savedIn(*m_store);
        event("Final").on("2030-06-12").savedIn(*m_store);
        event("Autumn").on("2030-10-01").savedIn(*m_store);
        anEvent("Fair").on("2030-05-01").in(makeCalendar(*m_store, "Town")).savedIn(*m_store);
        aTask("Water").dueOn("2030-05-01").savedIn(*m_store);
        list().select(KWListIdentifier::calendar(m_calendar));
        QVERIFY(!list().isSortable() && list().shown().isOfEvents());
        QCOMPARE(shown(), u"[Today 1] Tour [Tomorrow 2] Talk Match [Wednesday, 12 June 2030 1] Final …"_s);
        QCOMPARE(flatRows(list().categories(), {}).last().title, u"Show later events"_s);
        list().loadMore();
        QCOMPARE(shown(), u"[Today 1] Tour [Tomorrow 2] Talk Match [Wednesday, 12 June 2030 1] Final "
                          "[Tuesday, 1 October 2030 1] Autumn"_s);
        // Another list, and the days are as at first.
        list().select(KWListIdentifier::todayProject());
        list().select(KWListIdentifier::calendar(m_calendar));
        QVERIFY(flatRows(list().categories(), {}).last().kind == TaskListRow::Kind::LoadMore);
    }

    void aCalendarAsksForWhatRepeats()
    {
        KWRepeatInstanceService repeats{m_store->kit().manager(), m_store->account(), m_store->kit().center(),
                                        m_store->clock};
        list().onOccurrencesNeeded = [&repeats](Instant from, Instant to) {
            repeats.generateInstances(from, to);
        };
        event("Season")
            .from("2030-05-01 18:00", "2030-05-01 19:00")
            .repeating("FREQ=MONTHLY;COUNT=5")
            .savedIn(*m_store);
        list().select(KWListIdentifier::calendar(m_calendar));
        QTRY_COMPARE(list().rows().size(), 3);
        list().loadMore();
        QTRY_COMPARE(list().rows().size(), 5);
        QVERIFY(!list().categories().last().isLoadMore());
    }

    void thousandsComeInTheBackground()
    {
        for (int i = 0; i < 300; ++i)
            event("Match").from("2030-05-20 18:00", "2030-05-20 20:00").savedIn(*m_store);
        list().select(KWListIdentifier::calendar(m_calendar));
        QCOMPARE(list().rows().size(), 120);
        QTRY_COMPARE(list().rows().size(), 300);
    }

    void countEventsOfTodayBesideTheirCalendar()
    {
        KWProjectListCountFetcher counts{m_store->kit().manager(), m_store->kit().center()};
        const auto count = [&counts, this] {
            return counts.countCached(KWListIdentifier::calendar(m_calendar)).value_or(-1);
        };
        event("Match").on("2030-05-01").savedIn(*m_store);
        event("Talk").on("2030-05-02").savedIn(*m_store);
        event("Final").on("2030-05-02").savedIn(*m_store);
        counts.updateCountCache(m_store->userID());
        QTRY_COMPARE(count(), 1);
        QCOMPARE(counts.countCached(KWListIdentifier::todayProject()), std::optional{0});
        event("Tour").on("2030-05-01").savedIn(*m_store);
        counts.updateCountCache(m_store->userID(), SidebarCountKind::Calendars);
        QTRY_COMPARE(count(), 2);
        m_store->clock.advance(days{1});
        counts.updateCountCache(m_store->userID(), countsToRenewOn(KWNewDayComesNotification));
        QTRY_COMPARE(count(), 2);
        QVERIFY(calendars().remove(m_calendar));
        QTRY_COMPARE(count(), 0);
    }
};

ORVANE_TEST(EventsInLists_test)
#include "EventsInLists_test.moc"
