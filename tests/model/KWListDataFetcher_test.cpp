#include "model/store/KWListDataFetcher.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "model/store/KWCompletionLoader.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char *zone = "Europe/Berlin";

void setDates(TaskBuilder &task, const QString &when)
{
    const QStringList ends = when.split(u" .. "_s);
    const QByteArray first = ends.first().toLatin1();
    const QByteArray last = ends.last().toLatin1();
    const bool isAllDay = !when.contains(u':');
    if (when == u"-") return;
    if (isAllDay && ends.size() == 2)
        task.dueFrom(first, last);
    else if (isAllDay)
        task.dueOn(first);
    else
        task.startingAt(first);
    if (!isAllDay && ends.size() == 2) task.endingAt(last);
}

void setState(KWTaskModel &task, const QString &state)
{
    if (state.contains(u"completed")) task.status = KWTaskStatusCompleted;
    if (state.contains(u"abandoned")) task.status = KWTaskStatusAbandoned;
    task.isTrashed = state.contains(u"trashed");
    task.isDeleted = state.contains(u"deleted");
    if (task.status != KWTaskStatusOpen) task.completionDate = at("2030-04-30 12:00", zone);
}

QStringList titles(const QList<KWTaskListItemModel> &rows)
{
    QStringList titles;
    for (const KWTaskListItemModel &each : rows)
        titles << each.title;
    return titles;
}

} // namespace

class KWListDataFetcher_test : public QObject {
    Q_OBJECT

    StoreFixture m_store{"2030-05-01 09:00", zone};
    QHash<QString, QString> m_lists; // ids by name
    QString m_folder;

    QList<KWTaskListItemModel> rows(const KWListIdentifier &list, std::int64_t limit = -1)
    {
        const KWListDataFetcher fetcher{m_store.clock};
        Connection &connection = m_store.context().connection();
        const auto found = fetcher.reloadDataModel({m_store.userID(), list, limit}, connection);
        const auto count = fetcher.count({m_store.userID(), list}, connection);
        if (!found || !count) qFatal("The list cannot be read");
        if (*count && limit < 0 && **count != found->size())
            qFatal("%s counts %d", qPrintable(list.entityID), **count);
        return *found;
    }

    QList<std::pair<QString, KWListIdentifier>> selections(const QString &ownList) const
    {
        const auto smart = [](const KWSmartProject &project) {
            return KWListIdentifier::smartProject(project.identifier());
        };
        return {{u"own"_s, KWListIdentifier::project(ownList)},
                {u"folder"_s, KWListIdentifier::group(m_folder)},
                {u"tag"_s, KWListIdentifier::tag(u"errand"_s)},
                {u"all"_s, smart(KWSmartProject::all())},
                {u"today"_s, smart(KWSmartProject::today())},
                {u"tomorrow"_s, smart(KWSmartProject::tomorrow())},
                {u"next7"_s, smart(KWSmartProject::next7days())},
                {u"completed"_s, smart(KWSmartProject::completed())},
                {u"abandoned"_s, smart(KWSmartProject::abandoned())},
                {u"trash"_s, smart(KWSmartProject::trash())}};
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_lists.insert(u"Inbox"_s, KWProject::inboxIDOfUser(m_store.userID()));
        for (const char *name : {"Home", "Closed", "Hidden", "Gone", "Theirs"})
            m_lists.insert(QString::fromLatin1(name), m_store.makeList(QString::fromLatin1(name)));
        saved(m_store, [this](ObjectContext &context) {
            KWProjectGroupModel folder;
            folder.userID = m_store.userID();
            m_folder = context.insert<KWProjectGroup>(folder).sid();
            const auto list = [&](const QString &name) {
                return context.find<KWProject>(m_lists.value(name));
            };
            list(u"Home"_s)->set(&KWProjectModel::groupID, m_folder);
            list(u"Closed"_s)->set(&KWProjectModel::groupID, m_folder);
            list(u"Closed"_s)->set(&KWProjectModel::closed, true);
            list(u"Hidden"_s)->set(&KWProjectModel::showsInSmartList, false);
            list(u"Gone"_s)->markDelete();
            list(u"Theirs"_s)->set(&KWProjectModel::userID, u"another"_s);
        });
    }

    void cleanup()
    {
        m_store.clock.setNow(at("2030-05-01 09:00", zone));
        m_store.clock.setZone(zone);
        saved(m_store, [](ObjectContext &context) {
            for (KWTask *each : context.fetch<KWTask>({}))
                context.remove(*each);
        });
    }

    void showsATaskWhereItBelongs_data() { addCaseRows("model/list-contents.txt", 6); }

    void showsATaskWhereItBelongs()
    {
        QFETCH(const QStringList, cells);
        const QString list = m_lists.value(cells.at(1));
        QVERIFY(!list.isEmpty());
        TaskBuilder builder = aTask(qUtf8Printable(cells.at(0)), zone).tagged("errand").in(list);
        setDates(builder, cells.at(2));
        KWTaskModel task = builder.model();
        task.userID = m_store.userID();
        setState(task, cells.at(3));
        bool isOverdue = false;
        saved(m_store, [&](ObjectContext &context) { isOverdue = context.insert<KWTask>(task).isOverdue(); });
        QCOMPARE(isOverdue ? u"overdue"_s : u"-"_s, cells.at(4));

        QStringList shownIn;
        for (const auto &[name, selection] : selections(list))
            if (titles(rows(selection)) == QStringList{cells.at(0)}) shownIn << name;
        QCOMPARE(shownIn.isEmpty() ? u"-"_s : shownIn.join(u' '), cells.at(5));
    }

    void followsTheDayAndTheZone()
    {
        aTask("Pay rent", zone).startingAt("2030-05-02 01:30").savedIn(m_store);
        const auto today = KWListIdentifier::todayProject();
        QVERIFY(rows(today).isEmpty());
        m_store.clock.setZone("UTC"); // where it is 23:30 of today
        QCOMPARE(rows(today).size(), 1);
        m_store.clock.setZone(zone);
        m_store.clock.setNow(at("2030-05-02 00:00", zone));
        QCOMPARE(rows(today).size(), 1);
    }

    void ordersByDateThenPriorityThenPosition()
    {
        const auto dueToday = [this](const char *title, KWTaskPriority priority, std::int64_t position) {
            TaskBuilder task = aTask(title, zone).dueOn("2030-05-01");
            task.prioritized(priority).ordered(position).savedIn(m_store);
        };
        aTask("no date", zone).prioritized(KWTaskPriorityHigh).ordered(-9).savedIn(m_store);
        aTask("later", zone).dueOn("2030-05-03").prioritized(KWTaskPriorityHigh).savedIn(m_store);
        dueToday("low", KWTaskPriorityLow, 0);
        dueToday("high, second", KWTaskPriorityHigh, 2);
        dueToday("high, first", KWTaskPriorityHigh, 1);
        aTask("at nine", zone).startingAt("2030-05-01 09:00").savedIn(m_store);
        aTask("overdue", zone).dueOn("2030-04-30").ordered(99).savedIn(m_store);
        const auto all = KWListIdentifier::smartProject(KWSmartProject::all().identifier());
        QCOMPARE(titles(rows(all)), QStringList({u"overdue"_s, u"high, first"_s, u"high, second"_s, u"low"_s,
                                                 u"at nine"_s, u"later"_s, u"no date"_s}));
    }

    void ordersAListByPosition()
    {
        aTask("third", zone).dueOn("2030-05-01").ordered(5).savedIn(m_store);
        aTask("first", zone).ordered(-5).savedIn(m_store);
        aTask("second", zone).prioritized(KWTaskPriorityHigh).savedIn(m_store);
        const auto inbox = KWListIdentifier::project(m_lists.value(u"Inbox"_s));
        QCOMPARE(titles(rows(inbox)), QStringList({u"first"_s, u"second"_s, u"third"_s}));
        QCOMPARE(titles(rows(inbox, 2)), QStringList({u"first"_s, u"second"_s}));
    }

    void ordersCompletedTasksByTheirCompletion()
    {
        aTask("earlier").completedAt("2030-04-01 12:00").savedIn(m_store);
        aTask("latest").completedAt("2030-05-01 06:00").savedIn(m_store);
        aTask("between").completedAt("2030-04-30 12:00").dueOn("2040-01-01").savedIn(m_store);
        const auto completed = KWListIdentifier::smartProject(KWSmartProject::completed().identifier());
        QCOMPARE(titles(rows(completed)), QStringList({u"latest"_s, u"between"_s, u"earlier"_s}));
    }

    void readsWhatARowShows()
    {
        KWTaskModel task = aTask("Pack “ü”", zone)
                               .dueFrom("2030-05-01", "2030-05-03")
                               .tagged("errand")
                               .tagged("日本")
                               .prioritized(KWTaskPriorityMedium)
                               .ordered(-7)
                               .in(m_lists.value(u"Home"_s))
                               .model();
        task.kind = KWTaskKindChecklist;
        task.repeatRule = u"RRULE:FREQ=DAILY"_s;
        saved(m_store, [&task](ObjectContext &context) {
            task.sid = context.insert<KWTask>(task).sid();
            KWChecklistItemModel item;
            item.taskID = task.sid;
            context.insert<KWChecklistItem>(item);
            context.insert<KWChecklistItem>(item);
            item.status = KWTaskStatusCompleted;
            context.insert<KWChecklistItem>(item);
            context.insert<KWChecklistItem>(item).markDelete();
        });
        KWTaskListItemModel expected;
        expected.sid = task.sid;
        expected.title = task.title;
        expected.taskKind = task.kind;
        expected.priority = task.priority;
        expected.isAllDay = expected.repeats = true;
        expected.checklistCount = 3;
        expected.checklistDoneCount = 1;
        expected.sortOrder = task.sortOrder;
        expected.projectID = task.projectID;
        expected.tags = task.tags;
        expected.startDate = task.startDate;
        expected.endDate = task.endDate;
        expected.rowID = m_store.context().number("SELECT max(id) FROM tasks");
        QVERIFY(rows(KWListIdentifier::tag(u"日本"_s)) == QList{expected});
    }

    void findsTheTopOfManyHitsAsOfFew()
    {
        saved(m_store, [this](ObjectContext &context) {
            KWTaskModel task = aTask("Water the garden").in(m_lists.value(u"Home"_s)).model();
            for (int i = 0; i < 4100; ++i) {
                task.sortOrder = -i * 7 % 4099;
                context.insert<KWTask>(task);
            }
        });
        ListDataRequest request{m_store.userID(), KWListIdentifier::project(m_lists.value(u"Home"_s))};
        request.condition.text = u"gard"_s;
        const auto top = [&](std::int64_t limit) {
            request.limit = limit;
            return *KWListDataFetcher{m_store.clock}.reloadDataModel(request, m_store.context().connection());
        };
        QVERIFY(top(25) == top(-1).first(25));
    }

    void narrowsByWhatTheConditionAsks()
    {
        const QString home = m_lists.value(u"Home"_s);
        const auto task = [](const char *title) { return aTask(title, zone); };
        task("a").dueOn("2030-05-01").prioritized(KWTaskPriorityHigh).tagged("errand").savedIn(m_store);
        task("b").dueFrom("2030-04-30", "2030-05-02").in(home).savedIn(m_store);
        task("c").dueOn("2030-05-03").prioritized(KWTaskPriorityHigh).in(home).savedIn(m_store);
        const QString last = task("d").tagged("errand").in(home).savedIn(m_store);
        const auto all = KWListIdentifier::smartProject(KWSmartProject::all().identifier());
        const auto with = [&](const ListCondition &condition, std::int64_t limit = -1) {
            return titles(*KWListDataFetcher{m_store.clock}.reloadDataModel(
                              {m_store.userID(), all, limit, condition}, m_store.context().connection()))
                .join(QString{});
        };
        const auto day = [](int number) {
            return Day{std::chrono::sys_days{std::chrono::year{2030} / 5 / number}.time_since_epoch()};
        };
        QCOMPARE(with({}), u"bacd"_s);
        QCOMPARE(with({.projectIDs = {home}}, 2), u"bc"_s);
        QCOMPARE(with({.tag = u"errand"_s}), u"ad"_s);
        QCOMPARE(with({.projectIDs = {home}, .tag = u"errand"_s}), u"d"_s);
        QCOMPARE(with({.priority = KWTaskPriorityHigh}), u"ac"_s);
        QCOMPARE(with({.from = day(2)}), u"bc"_s);
        QCOMPARE(with({.from = day(2), .until = day(2)}), u"b"_s);
        QCOMPARE(with({.until = day(1)}), u"ba"_s);

        Connection &connection = m_store.context().connection();
        const KWListDataFetcher fetcher{m_store.clock};
        const auto matrix = fetcher.reloadDataModelForMatrix({.userID = m_store.userID()}, connection);
        QCOMPARE(titles(matrix->front()), QStringList({u"a"_s, u"c"_s}));
        QCOMPARE(titles(matrix->back()), QStringList({u"b"_s, u"d"_s}));
        QCOMPARE(titles(*fetcher.generateModels({last, u"gone"_s, matrix->front()[0].sid}, connection)),
                 QStringList({u"d"_s, u"a"_s}));
    }

    void pagesOfCompletedTasksFollowEachOther()
    {
        const QString inbox = m_lists.value(u"Inbox"_s);
        constexpr int count = 165;
        saved(m_store, [&](ObjectContext &context) { // several at the same moment, and without any
            for (int i = 0; i < count; ++i) {
                KWTaskModel task = aTask("A").in(inbox).model();
                task.userID = m_store.userID();
                task.status = KWTaskStatusCompleted;
                if (i < 30)
                    task.completionDate = at("2030-04-02 12:00");
                else if (i < 105)
                    task.completionDate = at("2030-04-01 12:00");
                context.insert<KWTask>(task);
            }
        });
        KWCompletionLoader loader{m_store.kit().manager(), m_store.userID()};
        QStringList ids;
        std::optional<CompletedPage> page;
        const auto take = [&](const Result<CompletedPage> &read) {
            page = *read;
            for (const KWTaskListItemModel &each : read->models)
                ids << each.sid;
        };
        loader.loadCompletedTasks(u"section"_s, {}, take);
        loader.loadCompletedTasks(u"section"_s, {inbox}, take); // asked for before the first one came
        QTRY_COMPARE(ids.size(), 2 * KWCompletionLoader::pageSize);
        QVERIFY(!page->isTotallyLoaded);
        QCOMPARE(loader.earliestTaskCompletionDate(u"section"_s), std::optional{at("2030-04-01 12:00")});
        saved(m_store, [&](ObjectContext &context) { context.remove(*context.find<KWTask>(ids.last())); });
        for (int i = 0; i < 2; ++i)
            loader.loadCompletedTasks(u"section"_s, {}, take);
        QTRY_COMPARE(ids.size(), count);
        QVERIFY(page->isTotallyLoaded);
        QCOMPARE(ids.removeDuplicates(), 0);
        QCOMPARE(loader.earliestTaskCompletionDate(u"section"_s), std::nullopt);

        loader.loadCalendarCompletedTasks(at("2030-04-02 12:00"), at("2030-04-03 00:00"), take);
        QTRY_COMPARE(page->models.size(), 30);
        loader.reset(u"section"_s);
        loader.loadCompletedTasks(u"section"_s, {}, take);
        QTRY_COMPARE(page->models.size(), KWCompletionLoader::pageSize);
    }

    void hasNoRowsForWhatItDoesNotKnow()
    {
        aTask("Pay rent", zone).dueOn("2030-05-01").savedIn(m_store);
        for (const KWListIdentifier &each :
             {KWListIdentifier::monthCalendarViewID(), KWListIdentifier::smartProject(u"smart.nothing"_s),
              KWListIdentifier::project(u"no such list"_s), KWListIdentifier::tag(u"rent' OR 1 = 1 --"_s)})
            QVERIFY(rows(each).isEmpty());
        const auto count = KWListDataFetcher{m_store.clock}.count(
            {m_store.userID(), KWListIdentifier::smartProject(KWSmartProject::completed().identifier())},
            m_store.context().connection());
        QVERIFY(count && !*count); // the sidebar shows no number there
    }
};

ORVANE_TEST(KWListDataFetcher_test)
#include "KWListDataFetcher_test.moc"
