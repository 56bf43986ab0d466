#include "model/store/KWListDataFetcher.h"

#include "model/records/KWAttachment.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWFocusSummary.h"
#include "model/records/KWProject.h"
#include "model/records/KWRepeatInstance.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "model/store/KWCompletionLoader.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char *zone = "Europe/Berlin";

QString titles(const QList<KWTaskListItemModel> &rows) { return joined(rows, &KWTaskListItemModel::title); }

// "today": the smart list of that name.
KWListIdentifier smart(const QString &name) { return KWListIdentifier::smartProject(u"smart."_s + name); }

} // namespace

class KWListDataFetcher_test : public QObject {
    Q_OBJECT

    StoreFixture m_store{"2030-05-01 09:00", zone};
    QHash<QString, QString> m_lists; // ids by name

    enum class Items { LeaveOut, Include };

    QList<KWTaskListItemModel> rows(const KWListIdentifier &list, std::int64_t limit = -1,
                                    Items items = Items::LeaveOut)
    {
        const KWListDataFetcher fetcher{m_store.clock};
        Connection &connection = m_store.context().connection();
        ListDataRequest request{m_store.userID(), list, limit};
        request.includeChecklist = items == Items::Include;
        const auto found = fetcher.reloadDataModel(request, connection);
        if (!found) qFatal("The list cannot be read");
        if (limit < 0 && *fetcher.count(request, connection) != found->size()) qFatal("Rows are miscounted");
        return *found;
    }

    QString add(const char *title, const QString &when, KWTaskPriority priority, int order,
                const QString &list = u"Inbox"_s)
    {
        TaskBuilder task = aTask(title, zone).when(when).prioritized(priority).ordered(order);
        return task.in(m_lists.value(list)).savedIn(m_store);
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_lists.insert(u"Inbox"_s, KWProject::inboxIDOfUser(m_store.userID()));
        for (const char *name : {"Home", "Closed", "Hidden", "Gone", "Theirs"})
            m_lists.insert(QString::fromLatin1(name), m_store.makeList(QString::fromLatin1(name)));
        saved(m_store, [this](ObjectContext &context) {
            const auto list = [&](const QString &name) {
                return context.find<KWProject>(m_lists.value(name));
            };
            for (const QString &each : {u"Home"_s, u"Closed"_s})
                list(each)->set(&KWProjectModel::groupID, u"folder"_s);
            list(u"Closed"_s)->set(&KWProjectModel::closed, true);
            list(u"Hidden"_s)->set(&KWProjectModel::showsInSmartList, false);
            list(u"Gone"_s)->markDelete();
            list(u"Theirs"_s)->set(&KWProjectModel::userID, u"another"_s);
        });
    }

    void cleanup()
    {
        saved(m_store, [](ObjectContext &context) {
            for (KWTask *each : context.fetch<KWTask>({}))
                context.remove(*each);
            for (KWChecklistItem *each : context.fetch<KWChecklistItem>({}))
                context.remove(*each);
        });
    }

    void showsATaskWhereItBelongs_data() { addCaseRows("model/list-contents.txt", 6); }

    void showsATaskWhereItBelongs()
    {
        QFETCH(const QStringList, cells);
        const QString list = m_lists.value(cells.at(1));
        QVERIFY(!list.isEmpty());
        TaskBuilder task = aTask(qUtf8Printable(cells.at(0)), zone).tagged("errand").in(list);
        const QString id = task.when(cells.at(2)).inState(cells.at(3), "2030-04-30 12:00").savedIn(m_store);
        const bool isOverdue = m_store.context().find<KWTask>(id)->isOverdue();
        QCOMPARE(isOverdue ? u"overdue"_s : u"-"_s, cells.at(4));

        QStringList shownIn;
        const auto look = [&](const QString &name, const KWListIdentifier &selection) {
            if (titles(rows(selection)) == cells.at(0)) shownIn << name;
        };
        look(u"own"_s, KWListIdentifier::project(list));
        look(u"folder"_s, KWListIdentifier::group(u"folder"_s));
        look(u"tag"_s, KWListIdentifier::tag(u"errand"_s));
        for (const QString &each : u"all today tomorrow next7days completed abandoned trash"_s.split(u' '))
            look(each, smart(each));
        QCOMPARE(shownIn.isEmpty() ? u"-"_s : shownIn.join(u' '), cells.at(5));
    }

    void showsADatedItemWhereItBelongs_data() { addCaseRows("model/list-items.txt", 6); }

    void showsADatedItemWhereItBelongs()
    {
        QFETCH(const QStringList, cells);
        TaskBuilder task = aTask("task", zone).tagged("errand").in(m_lists.value(cells.at(1)));
        task.withItem("item", qUtf8Printable(cells.at(2))).inState(cells.at(3), "2030-04-30 12:00");
        if (cells.at(3) == u"text") task.with(&KWTaskModel::kind, KWTaskKindText);
        task.savedIn(m_store);
        saved(m_store, [&cells](ObjectContext &context) {
            KWChecklistItem &item = *context.fetch<KWChecklistItem>({}).first();
            if (cells.at(4) == u"completed") item.updateStatus(KWTaskStatusCompleted);
            if (cells.at(4) == u"deleted") item.markDelete();
            if (cells.at(4) == u"undated") item.set(&KWChecklistItemModel::startDate, std::nullopt);
        });

        QStringList shownIn;
        const auto look = [&](const QString &name, const KWListIdentifier &selection) {
            const auto shown = titles(rows(selection, -1, Items::Include)).split(u' ');
            if (shown.contains(u"item"_s)) shownIn << name;
        };
        look(u"own"_s, KWListIdentifier::project(m_lists.value(cells.at(1))));
        look(u"tag"_s, KWListIdentifier::tag(u"errand"_s));
        for (const QString &each : u"all today tomorrow next7days completed trash"_s.split(u' '))
            look(each, smart(each));
        QCOMPARE(shownIn.isEmpty() ? u"-"_s : shownIn.join(u' '), cells.at(5));
        QVERIFY(!titles(rows(smart(u"today"_s))).contains(u"item"_s));
    }

    void anItemHasWhatItsTaskHas()
    {
        TaskBuilder builder = aTask("Move", zone).in(m_lists.value(u"Home"_s)).tagged("errand");
        builder.prioritized(KWTaskPriorityHigh).with(&KWTaskModel::assignee, 7);
        builder.withItem("Later", "2030-05-01 12:00").withItem("Key", "2030-05-01 10:00");
        const QString task = builder.savedIn(m_store);
        const auto today = rows(smart(u"today"_s), 1, Items::Include);
        const KWChecklistItemModel item =
            m_store.context().models<KWChecklistItem>({.where = "title = 'Key'"}).first();
        KWTaskListItemModel expected;
        expected.kind = KWTaskListItemModel::Kind::ChecklistItem;
        expected.sid = item.sid;
        expected.title = item.title;
        expected.ownerID = task;
        expected.ownerTitle = u"Move"_s;
        expected.projectID = m_lists.value(u"Home"_s);
        expected.tags = {u"errand"_s};
        expected.priority = KWTaskPriorityHigh;
        expected.assignee = 7;
        expected.sortOrder = item.sortOrder;
        expected.startDate = item.startDate;
        expected.createdTime = item.createdTime;
        expected.modifiedTime = item.modifiedTime;
        expected.rowID = m_store.context().number("SELECT id FROM checklistItems WHERE title = 'Key'");
        QVERIFY(today == QList{expected});
    }

    // The clock shows 1 May; what a late task has missed since is not to be done as well.
    void addsWhatComesLaterOfRepeatingTasks()
    {
        const QString task = aTask("Water", zone)
                                 .startingAt("2030-04-29 08:00")
                                 .prioritized(KWTaskPriorityHigh)
                                 .with(&KWTaskModel::repeatRule, u"FREQ=DAILY"_s)
                                 .with(&KWTaskModel::exDates, {at("2030-05-03 08:00", zone)})
                                 .savedIn(m_store);
        saved(m_store, [&](ObjectContext &context) {
            std::vector<KWRepeatInstance::Made> made;
            for (const char *each : {"2030-04-30 08:00", "2030-05-01 08:00", "2030-05-02 08:00",
                                     "2030-05-03 08:00", "2030-05-07 08:00", "2030-05-08 08:00"})
                made.push_back({task, KWRepeatInstanceTypeTask, at(each, zone), at(each, zone)});
            QVERIFY(KWRepeatInstance::insertAll(made, m_store.userID(), context));
        });
        const auto shown = [&](const char16_t *list, const QStringList &onlyTasks = {}) {
            ListDataRequest request{m_store.userID(), smart(QString::fromUtf16(list))};
            request.includeRepeat = true;
            request.condition.taskIDs = onlyTasks;
            const KWListDataFetcher fetcher{m_store.clock};
            const auto found = fetcher.reloadDataModel(request, m_store.context().connection()).value();
            QStringList days;
            for (const KWTaskListItemModel &each : found) {
                days << QString::number(unsigned(
                            std::chrono::year_month_day{m_store.clock.zone().dayOf(*each.startDate)}.day())) +
                            (each.isLaterOccurrence() ? u"*"_s : QString{});
                if (each.taskID() != task || each.priority != KWTaskPriorityHigh || !each.repeats)
                    qFatal("It is of no task");
                if (each.isLaterOccurrence() != (each.sid != task)) qFatal("It has the id of its task");
            }
            return days.join(u' ');
        };
        QCOMPARE(shown(u"today"), u"29 1*"_s);
        QCOMPARE(shown(u"tomorrow"), u"2*"_s);
        QCOMPARE(shown(u"next7days"), u"29 1* 2* 7*"_s);
        QCOMPARE(shown(u"next7days", {task}), u"29 1* 2* 7*"_s);
        QCOMPARE(shown(u"all"), u"29"_s);
        QCOMPARE(titles(rows(smart(u"today"_s))), u"Water"_s); // it is one thing to do
        setSaved<KWTask>(m_store, task, &KWTaskModel::status, KWTaskStatusCompleted);
        QCOMPARE(shown(u"next7days"), QString{});
    }

    void ordersEachListInItsWay()
    {
        add("undated", u"-"_s, KWTaskPriorityHigh, -9);
        add("later", u"2030-05-03"_s, KWTaskPriorityHigh, 0);
        add("low", u"2030-05-01"_s, KWTaskPriorityLow, 0);
        add("high-2", u"2030-05-01"_s, KWTaskPriorityHigh, 2);
        add("high-1", u"2030-05-01"_s, KWTaskPriorityHigh, 1);
        add("at-nine", u"2030-05-01 09:00"_s, KWTaskPriorityNone, 0);
        add("overdue", u"2030-04-30"_s, KWTaskPriorityNone, 99);
        QCOMPARE(titles(rows(smart(u"all"_s))), u"overdue high-1 high-2 low at-nine later undated"_s);
        const auto inbox = KWListIdentifier::project(m_lists.value(u"Inbox"_s));
        QCOMPARE(titles(rows(inbox)), u"undated later low at-nine high-1 high-2 overdue"_s);
        QCOMPARE(titles(rows(inbox, 2)), u"undated later"_s);
        for (const KWListIdentifier &each : {KWListIdentifier::monthCalendarViewID(), smart(u"nothing"_s)})
            QVERIFY(rows(each).isEmpty());

        aTask("earlier").completedAt("2030-04-01 12:00").savedIn(m_store);
        aTask("latest").completedAt("2030-05-01 06:00").savedIn(m_store);
        aTask("between").completedAt("2030-04-30 12:00").dueOn("2040-01-01").savedIn(m_store);
        QCOMPARE(titles(rows(smart(u"completed"_s))), u"latest between earlier"_s);
    }

    void readsWhatARowShows()
    {
        TaskBuilder builder = aTask("Pack “ü”", zone).dueFrom("2030-05-01", "2030-05-03").tagged("errand");
        builder.tagged("日本").prioritized(KWTaskPriorityMedium).ordered(-7).inState(u"repeating"_s, {});
        builder.in(m_lists.value(u"Home"_s)).with(&KWTaskModel::kind, KWTaskKindChecklist);
        builder.with(&KWTaskModel::pinnedDate, at("2030-05-01 08:00")).with(&KWTaskModel::assignee, 7);
        builder.with(&KWTaskModel::columnID, u"doing"_s)
            .with(&KWTaskModel::createdTime, at("2030-04-01 08:00"));
        KWTaskModel task = builder.model();
        saved(m_store, [&task](ObjectContext &context) {
            KWTask &parent = context.insert<KWTask>(aTask("Travel").in(task.projectID).model());
            task.parentId = parent.sid();
            task = context.insert<KWTask>(task).model();
            parent.set(&KWTaskModel::childIds, {u"another"_s, task.sid});
            KWAttachmentModel attachment;
            attachment.taskID = task.sid;
            context.insert<KWAttachment>(attachment);
            KWFocusSummaryModel focus;
            focus.taskID = task.sid;
            focus.pomoDuration = 1500;
            focus.stopwatchDuration = 60;
            context.insert<KWFocusSummary>(focus);
            KWChecklistItemModel item;
            item.taskID = task.sid;
            for (const KWTaskStatus each : {KWTaskStatusOpen, KWTaskStatusOpen, KWTaskStatusCompleted}) {
                item.status = each;
                context.insert<KWChecklistItem>(item);
            }
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
        expected.attachmentCount = expected.childPlace = 1;
        expected.focusDuration = 1560;
        expected.sortOrder = task.sortOrder;
        expected.projectID = task.projectID;
        expected.columnID = task.columnID;
        expected.parentId = task.parentId;
        expected.assignee = task.assignee;
        expected.pinnedDate = task.pinnedDate;
        expected.createdTime = task.createdTime;
        expected.modifiedTime = task.modifiedTime;
        expected.tags = task.tags;
        expected.startDate = task.startDate;
        expected.endDate = task.endDate;
        expected.rowID = m_store.context().number("SELECT max(id) FROM tasks");
        QVERIFY(rows(KWListIdentifier::tag(u"日本"_s)) == QList{expected});
    }

    void findsTheTopOfManyHitsAsOfFew_data()
    {
        QTest::addColumn<int>("othersBefore");
        QTest::newRow("the first are hits") << 0;
        QTest::newRow("the first are others") << 60;
    }
    void findsTheTopOfManyHitsAsOfFew()
    {
        QFETCH(int, othersBefore);
        saved(m_store, [this, othersBefore](ObjectContext &context) {
            KWTaskModel task = aTask("Water the garden").in(m_lists.value(u"Home"_s)).model();
            for (int i = 0; i < 4100; ++i) {
                task.sortOrder = -i * 7 % 4099;
                task.title = task.sortOrder < othersBefore - 4099 ? u"Sweep"_s : u"Water the garden"_s;
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
        const QString first = add("a", u"2030-05-01"_s, KWTaskPriorityHigh, 0);
        add("b", u"2030-04-30 .. 2030-05-02"_s, KWTaskPriorityNone, 0, u"Home"_s);
        add("c", u"2030-05-03"_s, KWTaskPriorityHigh, 0, u"Home"_s);
        const QString last = add("d", u"-"_s, KWTaskPriorityNone, 0, u"Home"_s);
        for (const QString &each : {first, last})
            setSaved<KWTask>(m_store, each, &KWTaskModel::tags, {u"errand"_s});
        Connection &connection = m_store.context().connection();
        const KWListDataFetcher fetcher{m_store.clock};
        const auto with = [&](const ListCondition &condition, std::int64_t limit = -1) {
            const auto all = smart(u"all"_s);
            return titles(*fetcher.reloadDataModel({m_store.userID(), all, limit, condition}, connection));
        };
        const Day today = m_store.clock.today(), tomorrow = today + std::chrono::days{1};
        QCOMPARE(with({}), u"b a c d"_s);
        QCOMPARE(with({.projectIDs = {home}}, 2), u"b c"_s);
        QCOMPARE(with({.projectIDs = {home}, .tag = u"errand"_s}), u"d"_s);
        QCOMPARE(with({.text = u"d"_s}) + with({.text = u"e"_s}) + with({.text = u"?"_s}), u"d"_s);
        QCOMPARE(with({.priority = KWTaskPriorityHigh}), u"a c"_s);
        QCOMPARE(with({.from = tomorrow}), u"b c"_s);
        QCOMPARE(with({.from = tomorrow, .until = tomorrow}), u"b"_s);
        QCOMPARE(with({.until = today}), u"b a"_s);

        const auto matrix = fetcher.reloadDataModelForMatrix({.userID = m_store.userID()}, connection);
        QCOMPARE(titles(matrix->front()) + u", "_s + titles(matrix->back()), u"a c, b d"_s);
        QCOMPARE(titles(*fetcher.generateModels({last, u"gone"_s, first}, connection)), u"d a"_s);
    }

    void putsClosedTasksBehindTheOpenOnes()
    {
        const QString home = m_lists.value(u"Home"_s);
        for (const char *each : {"x", "y", "z"})
            add(each, u"-"_s, KWTaskPriorityNone, 0, u"Home"_s);
        saved(m_store, [&](ObjectContext &context) {
            for (const auto &[title, moment] : {std::pair{"early", "2030-04-29 12:00"},
                                                {"late", "2030-05-01 08:00"},
                                                {"middle", "2030-04-30 12:00"}}) {
                KWTaskModel task = aTask(title).in(home).completedAt(moment).model();
                task.userID = m_store.userID();
                context.insert<KWTask>(task);
            }
        });
        const auto shown = [&](std::int64_t limit, bool includeCompleted, std::int64_t completionLimit) {
            ListDataRequest request{m_store.userID(), KWListIdentifier::project(home), limit};
            request.includeCompleted = includeCompleted;
            request.completionLimit = completionLimit;
            const KWListDataFetcher fetcher{m_store.clock};
            Connection &connection = m_store.context().connection();
            return titles(*fetcher.reloadDataModel(request, connection)) + u'/' +
                   QString::number(*fetcher.count(request, connection));
        };
        QCOMPARE(shown(-1, false, -1), u"x y z/3"_s);
        QCOMPARE(shown(-1, true, -1), u"x y z late middle early/3"_s);
        QCOMPARE(shown(1, true, 2), u"x late middle/3"_s);
        QCOMPARE(shown(-1, true, 0), u"x y z/3"_s);
    }

    void pagesOfCompletedTasksFollowEachOther()
    {
        const QString inbox = m_lists.value(u"Inbox"_s);
        constexpr int count = 165;
        saved(m_store, [&](ObjectContext &context) { // several at the same moment, and without any
            for (int i = 0; i < count; ++i) {
                KWTaskModel task = aTask("A").in(inbox).completedAt("2030-04-01 12:00").model();
                task.userID = m_store.userID();
                if (i < 30) task.completionDate = at("2030-04-02 12:00");
                if (i >= 105) task.completionDate.reset();
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
};

ORVANE_TEST(KWListDataFetcher_test)
#include "KWListDataFetcher_test.moc"
