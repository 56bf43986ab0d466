#include "model/store/KWListDataFetcher.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
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
    if (when == u"-")
        return;
    else if (isAllDay && ends.size() == 2)
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

    QList<KWTaskListItemModel> rows(const KWListIdentifier &list, std::int64_t limit = -1);
    QList<std::pair<QString, KWListIdentifier>> selections(const QString &ownList) const;

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void showsATaskWhereItBelongs_data();
    void showsATaskWhereItBelongs();
    void followsTheDayAndTheZone();
    void ordersByDateThenPriorityThenPosition();
    void ordersAListByPosition();
    void ordersCompletedTasksByTheirCompletion();
    void readsTheTopAlone();
    void readsWhatARowShows();
    void hasNoRowsForWhatItDoesNotKnow();
    void tellsWhyItCannotRead();
};

void KWListDataFetcher_test::initTestCase()
{
    m_lists.insert(u"Inbox"_s, KWProject::inboxIDOfUser(m_store.userID()));
    for (const char *name : {"Home", "Closed", "Hidden", "Gone", "Theirs"})
        m_lists.insert(QString::fromLatin1(name), m_store.makeList(QString::fromLatin1(name)));
    saved(m_store, [this](ObjectContext &context) {
        KWProjectGroupModel folder;
        folder.userID = m_store.userID();
        m_folder = context.insert<KWProjectGroup>(folder).sid();
        const auto list = [&](const QString &name) { return context.find<KWProject>(m_lists.value(name)); };
        list(u"Home"_s)->set(&KWProjectModel::groupID, m_folder);
        list(u"Closed"_s)->set(&KWProjectModel::groupID, m_folder);
        list(u"Closed"_s)->set(&KWProjectModel::closed, true);
        list(u"Hidden"_s)->set(&KWProjectModel::showsInSmartList, false);
        list(u"Gone"_s)->markDelete();
        list(u"Theirs"_s)->set(&KWProjectModel::userID, u"another"_s);
    });
}

void KWListDataFetcher_test::cleanup()
{
    m_store.clock.setNow(at("2030-05-01 09:00", zone));
    m_store.clock.setZone(zone);
    saved(m_store, [](ObjectContext &context) {
        for (KWTask *each : context.fetch<KWTask>({}))
            context.remove(*each);
    });
}

QList<KWTaskListItemModel> KWListDataFetcher_test::rows(const KWListIdentifier &list, std::int64_t limit)
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

QList<std::pair<QString, KWListIdentifier>> KWListDataFetcher_test::selections(const QString &ownList) const
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
            {u"completed"_s, smart(KWSmartProject::completed())}};
}

void KWListDataFetcher_test::showsATaskWhereItBelongs_data()
{
    QTest::addColumn<QStringList>("cells");
    for (const CaseRow &row : readCases("model/list-contents.txt", 5))
        QTest::newRow(row.where) << row.cells;
}

void KWListDataFetcher_test::showsATaskWhereItBelongs()
{
    QFETCH(const QStringList, cells);
    const QString list = m_lists.value(cells.at(1));
    QVERIFY(!list.isEmpty());
    TaskBuilder builder = aTask(qUtf8Printable(cells.at(0)), zone).tagged("errand").in(list);
    setDates(builder, cells.at(2));
    KWTaskModel task = builder.model();
    setState(task, cells.at(3));
    saved(m_store, [&task](ObjectContext &context) { context.insert<KWTask>(task); });

    QStringList shownIn;
    for (const auto &[name, selection] : selections(list))
        if (titles(rows(selection)) == QStringList{cells.at(0)}) shownIn << name;
    const QString expected = cells.at(4) == u"-" ? QString{} : cells.at(4);
    QVERIFY2(shownIn.join(u' ') == expected, qUtf8Printable(cells.at(0) + u": "_s + shownIn.join(u' ')));
}

void KWListDataFetcher_test::followsTheDayAndTheZone()
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

void KWListDataFetcher_test::ordersByDateThenPriorityThenPosition()
{
    aTask("no date", zone).prioritized(KWTaskPriorityHigh).ordered(-9).savedIn(m_store);
    aTask("later", zone).dueOn("2030-05-03").prioritized(KWTaskPriorityHigh).savedIn(m_store);
    aTask("low", zone).dueOn("2030-05-01").prioritized(KWTaskPriorityLow).savedIn(m_store);
    aTask("high, second", zone)
        .dueOn("2030-05-01")
        .prioritized(KWTaskPriorityHigh)
        .ordered(2)
        .savedIn(m_store);
    aTask("high, first", zone)
        .dueOn("2030-05-01")
        .prioritized(KWTaskPriorityHigh)
        .ordered(1)
        .savedIn(m_store);
    aTask("at nine", zone).startingAt("2030-05-01 09:00").savedIn(m_store);
    aTask("overdue", zone).dueOn("2030-04-30").ordered(99).savedIn(m_store);
    const auto all = KWListIdentifier::smartProject(KWSmartProject::all().identifier());
    QCOMPARE(titles(rows(all)), QStringList({u"overdue"_s, u"high, first"_s, u"high, second"_s, u"low"_s,
                                             u"at nine"_s, u"later"_s, u"no date"_s}));
}

void KWListDataFetcher_test::ordersAListByPosition()
{
    aTask("third", zone).dueOn("2030-05-01").ordered(5).savedIn(m_store);
    aTask("first", zone).ordered(-5).savedIn(m_store);
    aTask("second", zone).prioritized(KWTaskPriorityHigh).savedIn(m_store);
    QCOMPARE(titles(rows(KWListIdentifier::project(m_lists.value(u"Inbox"_s)))),
             QStringList({u"first"_s, u"second"_s, u"third"_s}));
}

void KWListDataFetcher_test::ordersCompletedTasksByTheirCompletion()
{
    aTask("earlier").completedAt("2030-04-01 12:00").savedIn(m_store);
    aTask("latest").completedAt("2030-05-01 06:00").savedIn(m_store);
    aTask("between").completedAt("2030-04-30 12:00").dueOn("2040-01-01").savedIn(m_store);
    const auto completed = KWListIdentifier::smartProject(KWSmartProject::completed().identifier());
    QCOMPARE(titles(rows(completed)), QStringList({u"latest"_s, u"between"_s, u"earlier"_s}));
}

void KWListDataFetcher_test::readsTheTopAlone()
{
    for (const char *title : {"a", "b", "c"})
        aTask(title).ordered(-*title).dueOn("2030-05-01").savedIn(m_store);
    const auto inbox = KWListIdentifier::project(m_lists.value(u"Inbox"_s));
    QCOMPARE(titles(rows(inbox, 2)), QStringList({u"c"_s, u"b"_s}));
    QCOMPARE(titles(rows(KWListIdentifier::todayProject(), 1)), QStringList{u"c"_s});
    QCOMPARE(rows(inbox, 0).size(), 0);
}

void KWListDataFetcher_test::readsWhatARowShows()
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
        for (const KWTaskStatus status : {KWTaskStatusOpen, KWTaskStatusCompleted, KWTaskStatusOpen}) {
            KWChecklistItemModel item;
            item.taskID = task.sid;
            item.status = status;
            context.insert<KWChecklistItem>(item);
        }
        KWChecklistItemModel gone;
        gone.taskID = task.sid;
        gone.status = KWTaskStatusCompleted;
        context.insert<KWChecklistItem>(gone).markDelete();
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
    QVERIFY(rows(KWListIdentifier::tag(u"日本"_s)) == QList{expected});
}

void KWListDataFetcher_test::hasNoRowsForWhatItDoesNotKnow()
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

void KWListDataFetcher_test::tellsWhyItCannotRead()
{
    Connection empty{":memory:", Connection::Access::ReadWriteCreate};
    const ListDataRequest request{m_store.userID(), KWListIdentifier::todayProject()};
    const auto rows = KWListDataFetcher{m_store.clock}.reloadDataModel(request, empty);
    QVERIFY(!rows && rows.error().sentence.endsWith(u'.'));
    const auto count = KWListDataFetcher{m_store.clock}.count(request, empty);
    QVERIFY(!count && count.error().sentence.endsWith(u'.'));
}

ORVANE_TEST(KWListDataFetcher_test)
#include "KWListDataFetcher_test.moc"
