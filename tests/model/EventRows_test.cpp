#include "model/store/EventRows.h"

#include "model/records/KWRepeatInstance.h"
#include "model/records/KWSmartProject.h"
#include "model/store/DatedThings.h"
#include "model/store/KWListDataFetcher.h"
#include "model/store/ListDays.h"
#include "support/Answers.h"
#include "support/EventBuilder.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char *berlin = "Europe/Berlin";

KWListIdentifier smart(const KWSmartProject &list)
{
    return KWListIdentifier::smartProject(list.identifier());
}

} // namespace

/// It is Wednesday, 1 May 2030.
class EventRows_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QString m_calendar;

    ListDataRequest requestOf(const KWListIdentifier &list) const
    {
        ListDataRequest request{.userID = m_store->userID(), .selection = list};
        request.includeEvents = true;
        return request;
    }
    QList<KWTaskListItemModel> rows(const ListDataRequest &request) const
    {
        return KWListDataFetcher{m_store->clock}
            .reloadDataModel(request, m_store->context().connection())
            .value();
    }
    QString titles(const ListDataRequest &request) const
    {
        return joined(rows(request), &KWTaskListItemModel::title);
    }
    QString titles(const KWListIdentifier &list) const { return titles(requestOf(list)); }
    bool hasLater(int days) const
    {
        ListDataRequest request = requestOf(KWListIdentifier::calendar(m_calendar));
        request.calendarDays = days;
        return hasLaterEvents(request, m_store->clock, m_store->context().connection()).value();
    }
    void storeOccurrence(const QString &event, const char *start, const char *end)
    {
        saved(*m_store, [&](ObjectContext &context) {
            QVERIFY(KWRepeatInstance::insertAll(
                {{event, KWRepeatInstanceTypeEvent, at(start, berlin), at(end, berlin)}}, m_store->userID(),
                context));
        });
    }
    EventBuilder event(const char *title) const { return anEvent(title, berlin).in(m_calendar); }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", berlin);
        m_calendar = makeCalendar(*m_store, "Sports", "#112233");
    }

    void standsInTheListsOfItsDays_data()
    {
        QTest::addColumn<QByteArray>("start");
        QTest::addColumn<QByteArray>("end");
        QTest::addColumn<QString>("lists"); // Today, Tomorrow, Next 7 Days, the calendar
        const auto row = [](const char *name, const char *start, const char *end, const char *lists) {
            QTest::newRow(name) << QByteArray{start} << QByteArray{end} << QString::fromLatin1(lists);
        };
        row("over", "2030-04-30 20:00", "2030-05-01 00:00", "----");
        row("over today", "2030-05-01 07:00", "2030-05-01 08:00", "T-7C");
        row("goes on until today", "2030-04-28 07:00", "2030-05-01 00:01", "T-7C");
        row("into tomorrow", "2030-05-01 23:00", "2030-05-02 01:00", "TM7C");
        row("has no length", "2030-05-02 00:00", "2030-05-02 00:00", "-M7C");
        row("on the last day", "2030-05-07 23:59", "2030-05-08 02:00", "--7C");
        row("in a week", "2030-05-08 00:00", "2030-05-08 01:00", "---C");
        row("on the last day of the calendar", "2030-07-29 23:00", "2030-07-30 01:00", "---C");
        row("much later", "2030-07-30 00:00", "2030-07-30 01:00", "----");
        row("since long ago", "2030-01-01 00:00", "2030-12-01 00:00", "TM7C");
    }
    void standsInTheListsOfItsDays()
    {
        QFETCH(const QByteArray, start);
        QFETCH(const QByteArray, end);
        event("Match").from(start, end).savedIn(*m_store);
        QString lists;
        for (const auto &[list, letter] : {std::pair{smart(KWSmartProject::today()), u'T'},
                                           {smart(KWSmartProject::tomorrow()), u'M'},
                                           {smart(KWSmartProject::next7days()), u'7'},
                                           {KWListIdentifier::calendar(m_calendar), u'C'}})
            lists += rows(requestOf(list)).size() == 1 ? letter : u'-';
        QTEST(lists, "lists");
        QCOMPARE(titles(smart(KWSmartProject::all())), QString{});
    }

    void saysWhatItIs()
    {
        const QString id = event("Match").on("2030-04-30", "2030-05-01").savedIn(*m_store);
        const KWTaskListItemModel row = rows(requestOf(KWListIdentifier::todayProject())).first();
        QVERIFY(row.isEvent() && row.isAllDay && !row.isTaskOrItem() && !row.isLaterOccurrence());
        QCOMPARE(row.ownerID, id);
        QCOMPARE(row.taskID(), QString{}); // nothing that is hidden or shown as a task
        QCOMPARE(row.projectID + row.color, m_calendar + u"#112233"_s);
        QCOMPARE(row.endDate, std::optional{at("2030-05-02 00:00", berlin)});
    }

    void standsOnceForEachOccurrence()
    {
        const QString id = event("Training")
                               .from("2030-05-01 18:00", "2030-05-01 19:00")
                               .repeating("FREQ=DAILY")
                               .savedIn(*m_store);
        storeOccurrence(id, "2030-05-02 18:00", "2030-05-02 19:00");
        storeOccurrence(id, "2030-05-03 18:00", "2030-05-03 19:00");
        const auto found = rows(requestOf(smart(KWSmartProject::next7days())));
        QCOMPARE(joined(found, &KWTaskListItemModel::title), u"Training Training Training"_s);
        QSet<QString> ids;
        for (const KWTaskListItemModel &each : found) {
            ids.insert(each.sid);
            QVERIFY(each.repeats && each.ownerID == id);
        }
        QCOMPARE(ids.size(), 3);
        const auto numbers = countDatedEvents({.userID = m_store->userID(),
                                               .from = at("2030-05-02 00:00", berlin),
                                               .to = at("2030-05-04 00:00", berlin)},
                                              m_store->context().connection());
        QCOMPARE(numbers->value(m_calendar), 2);
    }

    void comesOnlyWhereItIsAskedFor()
    {
        event("Match").on("2030-05-01").savedIn(*m_store);
        const QString other = makeCalendar(*m_store, "Town");
        anEvent("Fair", berlin).on("2030-05-01").in(other).savedIn(*m_store);
        aTask("Water", berlin).dueOn("2030-05-01").savedIn(*m_store);
        ListDataRequest request = requestOf(KWListIdentifier::todayProject());
        QCOMPARE(titles(request), u"Water Match Fair"_s);
        QCOMPARE(*KWListDataFetcher{m_store->clock}.count(request, m_store->context().connection()), 1);
        request.hiddenCalendars = {other};
        QCOMPARE(titles(request), u"Water Match"_s);
        request.selection = KWListIdentifier::calendar(other);
        QCOMPARE(titles(request), u"Fair"_s); // who asks for the calendar itself sees it
        request = requestOf(KWListIdentifier::todayProject());
        request.limit = 1;
        QCOMPARE(titles(request), u"Water Match"_s);
        request.includeEvents = false;
        QCOMPARE(titles(request), u"Water"_s);
        QCOMPARE(titles(requestOf(KWListIdentifier::calendar(u"gone"_s))), QString{});
    }

    void knowsWhatComesLater_data()
    {
        QTest::addColumn<QByteArray>("start");
        QTest::addColumn<QByteArray>("rule");
        QTest::addColumn<bool>("isLater"); // than ten days
        const auto row = [](const char *name, const char *start, const char *rule, bool isLater) {
            QTest::newRow(name) << QByteArray{start} << QByteArray{rule} << isLater;
        };
        row("the last of the days", "2030-05-10 23:59", "", false);
        row("the day after", "2030-05-11 00:00", "", true);
        row("for ever", "2030-01-01 09:00", "FREQ=YEARLY", true);
        row("some times", "2030-05-01 09:00", "FREQ=DAILY;COUNT=10", false);
        row("once more", "2030-05-01 09:00", "FREQ=DAILY;COUNT=11", true);
        row("until then", "2030-05-01 09:00", "FREQ=WEEKLY;UNTIL=20300511", false);
    }
    void knowsWhatComesLater()
    {
        QFETCH(const QByteArray, start);
        QFETCH(const QByteArray, rule);
        QVERIFY(!hasLater(10));
        event("Match").from(start, start).repeating(rule).savedIn(*m_store);
        anEvent("Fair", berlin).on("2030-06-01").in(makeCalendar(*m_store, "Town")).savedIn(*m_store);
        QTEST(hasLater(10), "isLater");
    }
};

ORVANE_TEST(EventRows_test)
#include "EventRows_test.moc"
