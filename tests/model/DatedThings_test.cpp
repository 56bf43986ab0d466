#include "model/store/DatedThings.h"

#include "model/records/KWCalSubscription.h"
#include "model/records/KWCalSubscriptionEvent.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWRepeatInstance.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr const char *berlin = "Europe/Berlin";

} // namespace

class DatedThings_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QHash<QString, QString> m_lists;

    std::vector<DatedThing> read(bool withClosed = false, const QStringList &hidden = {})
    {
        const auto things = readDatedThings({.userID = m_store->userID(),
                                             .from = at("2030-05-06 00:00", berlin),
                                             .to = at("2030-05-13 00:00", berlin),
                                             .includeCompleted = withClosed,
                                             .includeChecklist = true,
                                             .includeRepeat = true,
                                             .hiddenCalendars = hidden,
                                             .hiddenLists = hidden},
                                            m_store->context());
        return things.value();
    }

    QString repeating(const char *start)
    {
        return aTask("Water", berlin).startingAt(start).inState(u"repeating"_s, start).savedIn(*m_store);
    }
    void store(const QString &sourceID, const char *start, const char *end,
               KWRepeatInstanceType type = KWRepeatInstanceTypeTask)
    {
        saved(*m_store, [&](ObjectContext &context) {
            const auto stored = KWRepeatInstance::insertAll(
                {{sourceID, type, at(start, berlin), at(end, berlin)}}, m_store->userID(), context);
            QVERIFY(stored);
        });
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", berlin);
        m_lists.insert(u"inbox"_s, KWProject::inboxIDOfUser(m_store->userID()));
        for (const QString &each : {u"hidden"_s, u"archived"_s})
            m_lists.insert(each, m_store->makeList(each));
        setSaved<KWProject>(*m_store, m_lists.value(u"hidden"_s), &KWProjectModel::showsInSmartList, false);
        setSaved<KWProject>(*m_store, m_lists.value(u"archived"_s), &KWProjectModel::closed, true);
    }
    void cleanup()
    {
        saved(*m_store, [](ObjectContext &context) {
            for (const char *table : {"tasks", "repeatInstances"})
                context.bulkWriting().execute((std::string{"DELETE FROM "} + table).c_str());
        });
    }

    void findsTasksOfARange_data() { addCaseRows("model/dated-things.txt", 4); }
    void findsTasksOfARange()
    {
        QFETCH(const QStringList, cells);
        const QString id = aTask("A", berlin)
                               .in(m_lists.value(cells.at(0)))
                               .when(cells.at(1))
                               .inState(cells.at(2), "2030-05-08 08:00")
                               .savedIn(*m_store);
        const auto open = read();
        const auto all = read(true);
        const bool isOpen = cells.at(3) == u"open"_s;
        QCOMPARE(open.size(), std::size_t(isOpen));
        QCOMPARE(all.size(), std::size_t(cells.at(3) != u"never"_s));
        if (all.empty()) return;
        QCOMPARE(all.front().sid, id);
        QCOMPARE(all.front().isClosed, !isOpen);
        QCOMPARE(all.front().repeats, cells.at(2) == u"repeating"_s);
    }

    void findsStoredOccurrences_data()
    {
        QTest::addColumn<QByteArray>("start");
        QTest::addColumn<QByteArray>("end");
        QTest::addColumn<bool>("isFound");
        const auto row = [](const char *name, const char *start, const char *end, bool isFound) {
            QTest::newRow(name) << QByteArray{start} << QByteArray{end} << isFound;
        };
        row("in it", "2030-05-08 09:00", "2030-05-08 09:00", true);
        row("at its beginning", "2030-05-06 00:00", "2030-05-06 00:00", true);
        row("at its end", "2030-05-13 00:00", "2030-05-13 01:00", false);
        row("before it", "2030-05-05 09:00", "2030-05-05 09:00", false);
        row("until it", "2030-05-05 09:00", "2030-05-06 00:00", false);
        row("into it", "2030-05-05 23:00", "2030-05-06 01:00", true);
        row("into it for a day", "2030-05-05 09:00", "2030-05-06 09:00", true);
        row("into it for weeks", "2030-04-10 09:00", "2030-05-06 09:00", true);
        row("for weeks, until it", "2030-04-10 09:00", "2030-05-06 00:00", false);
        row("over all of it", "2030-05-01 09:00", "2030-06-01 09:00", true);
    }
    void findsStoredOccurrences()
    {
        QFETCH(const QByteArray, start);
        QFETCH(const QByteArray, end);
        QFETCH(const bool, isFound);
        const QString task = repeating("2030-04-01 09:00");
        store(task, start, end);
        const auto found = read();
        QCOMPARE(found.size(), std::size_t(isFound));
        if (!isFound) return;
        QCOMPARE(found.front().taskID, task);
        QCOMPARE(found.front().occurrence, at(start, berlin));
        QCOMPARE(found.front().endDate, at(end, berlin));
        QVERIFY(found.front().repeats);
    }

    void leavesOutHiddenLists()
    {
        const QString list = m_store->makeList(u"garden"_s);
        const QString task = aTask("Water", berlin)
                                 .in(list)
                                 .startingAt("2030-05-07 09:00")
                                 .inState(u"repeating"_s, "2030-05-07 09:00")
                                 .savedIn(*m_store);
        store(task, "2030-05-08 09:00", "2030-05-08 09:00");
        aTask("Call", berlin).startingAt("2030-05-07 10:00").savedIn(*m_store);
        QCOMPARE(read().size(), std::size_t{3});
        const auto others = read(false, {list});
        QCOMPARE(others.size(), std::size_t{1});
        QCOMPARE(others.front().title, u"Call"_s);
    }

    // They are generated again some time after a change.
    void leavesOutOccurrencesThatAreNoMore_data()
    {
        QTest::addColumn<std::function<void(KWTask &)>>("change");
        const auto row = [](const char *name, auto member, auto value) {
            QTest::newRow(name) << std::function<void(KWTask &)>{
                [=](KWTask &task) { task.set(member, value); }};
        };
        row("completed", &KWTaskModel::status, KWTaskStatusCompleted);
        row("in the trash", &KWTaskModel::isTrashed, true);
        row("no longer repeating", &KWTaskModel::repeatRule, QString{});
        row("reached", &KWTaskModel::startDate, std::optional{at("2030-05-08 09:00", berlin)});
        row("skipped", &KWTaskModel::exDates, QList{at("2030-05-08 09:00", berlin)});
        row("in a hidden list", &KWTaskModel::projectID, u"hidden"_s);
    }
    void leavesOutOccurrencesThatAreNoMore()
    {
        QFETCH(const std::function<void(KWTask &)>, change);
        const QString task = repeating("2030-05-01 09:00");
        store(task, "2030-05-08 09:00", "2030-05-08 09:00");
        QCOMPARE(read().size(), std::size_t{1});
        saved(*m_store, [&](ObjectContext &context) {
            KWTask &changed = *context.find<KWTask>(task);
            change(changed);
            if (changed->projectID == u"hidden"_s)
                changed.set(&KWTaskModel::projectID, m_lists.value(u"hidden"_s));
        });
        for (const DatedThing &each : read())
            QVERIFY(!each.occurrence);
    }

    void findsEventsOfCalendars()
    {
        QString calendar;
        QString event;
        saved(*m_store, [&](ObjectContext &context) {
            KWCalSubscriptionModel itsModel;
            itsModel.userID = m_store->userID();
            itsModel.color = u"#112233"_s;
            calendar = context.insert<KWCalSubscription>(itsModel).sid();
            KWCalSubscriptionEventModel model;
            model.userID = m_store->userID();
            model.subscriptionID = calendar;
            model.title = u"Match"_s;
            model.startDate = at("2030-05-06 18:00", berlin);
            model.endDate = at("2030-05-06 20:00", berlin);
            model.repeatRule = u"FREQ=DAILY"_s;
            event = context.insert<KWCalSubscriptionEvent>(model).sid();
        });
        for (const char *each : {"2030-05-07 18:00", "2030-05-08 18:00"})
            store(event, each, each, KWRepeatInstanceTypeEvent);
        const auto textOf = [this](const QStringList &hidden = {}) {
            QStringList texts;
            for (const DatedThing &each : read(false, hidden))
                texts << each.title + each.color + (each.occurrence ? u"*"_s : QString{});
            return texts.join(u' ');
        };
        QCOMPARE(textOf(), u"Match#112233 Match#112233* Match#112233*"_s);
        QVERIFY(read().front().kind == DatedThing::Kind::Event &&
                read().back().kind == DatedThing::Kind::Event);
        QVERIFY(read().back().isReadOnly && read().back().listID == calendar);
        QCOMPARE(textOf({calendar}), QString{});
        // Moved ones are events of their own, the first one as well.
        setSaved<KWCalSubscriptionEvent>(*m_store, event, &KWCalSubscriptionEventModel::exDates,
                                         {at("2030-05-06 18:00", berlin), at("2030-05-08 18:00", berlin)});
        QCOMPARE(textOf(), u"Match#112233*"_s);
        setSaved<KWCalSubscription>(*m_store, calendar, &KWCalSubscriptionModel::isDeleted, true);
        QCOMPARE(textOf(), QString{});
    }

    void findsItemsOfChecklists()
    {
        const QString task = aTask("Trip", berlin)
                                 .prioritized(KWTaskPriorityHigh)
                                 .withItem("Tickets", "2030-05-08 09:00")
                                 .withItem("Bags", "2030-05-13 00:00")
                                 .savedIn(*m_store);
        const auto found = read();
        QCOMPARE(found.size(), std::size_t{1});
        QVERIFY(found.front().kind == DatedThing::Kind::ChecklistItem);
        QCOMPARE(found.front().title, u"Tickets"_s);
        QCOMPARE(found.front().taskID, task);
        QCOMPARE(found.front().priority, KWTaskPriorityHigh);
        setSaved<KWTask>(*m_store, task, &KWTaskModel::status, KWTaskStatusCompleted);
        QVERIFY(read().empty());
    }
};

ORVANE_TEST(DatedThings_test)
#include "DatedThings_test.moc"
