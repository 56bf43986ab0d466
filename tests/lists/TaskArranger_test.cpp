#include "lists/TaskArranger.h"

#include "RowText.h"
#include "lists/KWTaskListService.h"
#include "model/records/KWColumn.h"
#include "model/records/KWHabit.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "support/CaseTable.h"
#include "support/StoreFixture.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

/// Rows of RowText in a store, shown by what they are sorted by, and moved about.
class TaskArranger_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<KWTaskListService> m_list;

    KWCoreDataManager &manager() { return m_store->kit().manager(); }
    QString shown() { return RowText::textOf(flatRows(m_list->categories(), {})); }

    void fill(const QString &rows)
    {
        saved(*m_store, [&](ObjectContext &context) {
            const auto add = [&]<class Record>(std::type_identity<Record>, const QString &id, auto &&edit) {
                typename Record::Model model;
                model.sid = model.name = id;
                model.userID = m_store->userID();
                edit(model);
                context.insert<Record>(model);
            };
            for (const QString &each : {u"home"_s, u"work"_s})
                add(std::type_identity<KWProject>{}, each,
                    [](KWProjectModel &list) { list.isShared = true; });
            for (const QString &each : {u"next"_s, u"doing"_s})
                add(std::type_identity<KWColumn>{}, each,
                    [](KWColumnModel &column) { column.projectID = u"home"_s; });
            for (const QString &each : {u"errand"_s, u"food"_s})
                add(std::type_identity<KWTag>{}, each, [&](KWTagModel &tag) { tag.label = each; });
            for (const KWTaskListItemModel &row : RowText::rows(rows)) {
                if (row.isHabit()) {
                    add(std::type_identity<KWHabit>{}, row.sid,
                        [](KWHabitModel &habit) { habit.repeatRule = u"FREQ=DAILY"_s; });
                    continue;
                }
                KWTaskModel task =
                    aTask(qUtf8Printable(row.title)).ordered(row.rowID * KWSortOrderStep).model();
                task.sid = row.sid;
                task.userID = m_store->userID();
                task.projectID = row.projectID.isEmpty() ? u"home"_s : row.projectID;
                task.kind = row.taskKind;
                task.status = row.status;
                task.priority = row.priority;
                task.tags = row.tags;
                task.columnID = row.columnID;
                task.parentId = row.parentId;
                task.assignee = row.assignee;
                task.startDate = row.startDate;
                task.isAllDay = row.startDate.has_value();
                task.pinnedDate = row.pinnedDate;
                task.completionDate = row.completionDate;
                context.insert<KWTask>(task);
            }
        });
    }

    // "date", "date today"
    void show(const QString &text)
    {
        const QString sortType = text.section(u' ', 0, 0);
        const QString smart = text.section(u' ', 1);
        const bool isOfList = sortType == u"custom" || sortType == u"assignee";
        m_list->select(isOfList ? KWListIdentifier::project(u"home"_s)
                       : smart == u"today"
                           ? KWListIdentifier::todayProject()
                           : KWListIdentifier::smartProject(KWSmartProject::all().identifier()));
        QVERIFY(m_list->setSortType(*valueOf<KWTaskSortType>(sortType)));
        QCOMPARE(m_list->sortType(), *valueOf<KWTaskSortType>(sortType));
    }

    // "Today", "Today: after a", "in a: after b"
    TaskDropPlace placeOf(const QString &text)
    {
        const QString where = text.section(u": after "_s, 0, 0);
        TaskDropPlace place{.afterTaskID = text.section(u": after "_s, 1)};
        if (where.startsWith(u"in "_s)) place.parentTaskID = where.sliced(3);
        for (int i = 0; i < m_list->categories().size(); ++i)
            if (m_list->categories().at(i).title() == where || (where == u"-" && i == 0)) place.category = i;
        return place;
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_list = std::make_unique<KWTaskListService>(manager(), m_store->account(), m_store->kit().center(),
                                                     m_store->kit().bus());
    }
    void cleanup()
    {
        m_list.reset();
        m_store.reset();
    }

    void putsTasksWhereTheyAreDropped_data() { addCaseRows("lists/drops.txt", 5); }
    void putsTasksWhereTheyAreDropped()
    {
        QFETCH(const QStringList, cells);
        fill(cells.at(1));
        show(cells.at(0));
        const QString before = shown();
        TaskArranger arranger{manager()};
        const QStringList moved = cells.at(2).split(u' ');
        Result<UndoToken> done = Error{};
        if (cells.at(3) == u"nest")
            done = arranger.nest(moved, *m_list);
        else if (cells.at(3) == u"unnest")
            done = arranger.unnest(moved);
        else
            done = arranger.drop(moved, placeOf(cells.at(3)), *m_list);
        QCOMPARE(done ? shown() : done.error().sentence, cells.at(4));
        if (!done) QCOMPARE(shown(), before);
        if (done) QVERIFY(done->undo(manager()));
        QCOMPARE(shown(), before);
    }

    void keepsManualOrderUntilItIsReset()
    {
        fill(u"a !5, b !5, c !5, d !5"_s);
        show(u"priority"_s);
        TaskArranger arranger{manager()};
        for (int i = 0; i < 50; ++i) // halving would end before that
            for (const QString &each : {u"c"_s, u"b"_s})
                QVERIFY(arranger.drop({each}, placeOf(u"High: after a"_s), *m_list));
        QVERIFY(arranger.drop({u"d"_s}, placeOf(u"High"_s), *m_list));
        QCOMPARE(shown(), u"[High 4] d a b c"_s);
        QVERIFY(m_list->sortMenu().manualOrders.hasPrioritySortOrder);
        setSaved<KWTask>(*m_store, u"a"_s, &KWTaskModel::priority, KWTaskPriorityLow);
        QCOMPARE(shown(), u"[High 3] d b c [Low 1] a"_s);
        const auto reset = m_list->resetManualOrder();
        QCOMPARE(shown(), u"[High 3] b c d [Low 1] a"_s);
        QVERIFY(reset->undo(manager()));
        QCOMPARE(shown(), u"[High 3] d b c [Low 1] a"_s);
        QVERIFY(m_list->resetManualOrder());
        QCOMPARE(shown(), u"[High 3] b c d [Low 1] a"_s);
        QVERIFY(!m_list->sortMenu().resetTitle());
    }

    void tellsOfAllOrdersByHandAndResetsTheFirst()
    {
        fill(u"a 05-01 !5 #food, b 05-01 !5 #food, c 05-01 !5 #food"_s);
        TaskArranger arranger{manager()};
        for (const auto &[sortType, section] : {std::pair{u"tag"_s, u"food"_s},
                                                {u"project"_s, u"home"_s},
                                                {u"priority"_s, u"High"_s},
                                                {u"date"_s, u"Today"_s}}) {
            show(sortType);
            QVERIFY(arranger.drop({u"c"_s}, placeOf(section), *m_list));
        }
        show(u"title"_s);
        for (const KWTaskSortType expected :
             {KWTaskSortTypeDate, KWTaskSortTypePriority, KWTaskSortTypeProject, KWTaskSortTypeTag}) {
            QCOMPARE(m_list->sortMenu().resetType(), std::optional{expected});
            QVERIFY(m_list->resetManualOrder());
        }
        QVERIFY(!m_list->sortMenu().resetType());
        show(u"date"_s);
        QCOMPARE(shown(), u"[Today 3] a b c"_s);
    }

    // It would stand elsewhere by now.
    void passesOverOrdersThatAreOutOfDate()
    {
        fill(u"a 05-01 !5 #food, b 05-01 !5 #food"_s);
        TaskArranger arranger{manager()};
        for (const auto &[sortType, section] :
             {std::pair{u"tag"_s, u"food"_s}, {u"priority"_s, u"High"_s}, {u"date"_s, u"Today"_s}}) {
            show(sortType);
            QVERIFY(arranger.drop({u"b"_s}, placeOf(section), *m_list));
        }
        show(u"title"_s);
        const auto resetType = [this] { return m_list->sortMenu().resetType(); };
        setSaved<KWTask>(*m_store, u"b"_s, &KWTaskModel::startDate, std::optional{at("2030-05-02 00:00")});
        QCOMPARE(resetType(), std::optional{KWTaskSortTypePriority});
        setSaved<KWTask>(*m_store, u"b"_s, &KWTaskModel::priority, KWTaskPriorityLow);
        QCOMPARE(resetType(), std::optional{KWTaskSortTypeTag});
        setSaved<KWTask>(*m_store, u"b"_s, &KWTaskModel::tags, QStringList{});
        QVERIFY(!resetType());
    }

    void leavesASubtaskWithoutItsParentInTheListBelowIt()
    {
        fill(u"p, a 05-02 ^p, b 05-02, c 05-01"_s);
        m_list->select(KWListIdentifier::smartProject(KWSmartProject::next7days().identifier()));
        QVERIFY(m_list->setSortType(KWTaskSortTypeDate));
        const auto parent = [this] { return m_store->context().find<KWTask>(u"a"_s)->model().parentId; };
        QCOMPARE(shown(), u"[Today 1] c [Tomorrow 2] a b"_s);
        TaskArranger arranger{manager()};
        QVERIFY(arranger.drop({u"a"_s}, placeOf(u"Tomorrow: after b"_s), *m_list));
        QCOMPARE(shown(), u"[Today 1] c [Tomorrow 2] b a"_s);
        QCOMPARE(parent(), u"p"_s);
        QVERIFY(arranger.drop({u"a"_s}, placeOf(u"Today"_s), *m_list));
        QCOMPARE(shown(), u"[Today 2] a c [Tomorrow 1] b"_s);
        QCOMPARE(parent(), u"p"_s);
    }

    void makesRoomInAListThatIsPutInOrder()
    {
        fill(u"a, b, c"_s);
        show(u"custom"_s);
        TaskArranger arranger{manager()};
        for (int i = 0; i < 50; ++i)
            for (const QString &each : {u"c"_s, u"b"_s})
                QVERIFY(arranger.drop({each}, placeOf(u"-: after a"_s), *m_list));
        QCOMPARE(shown(), u"a b c"_s);
    }
};

ORVANE_TEST(TaskArranger_test)
#include "TaskArranger_test.moc"
