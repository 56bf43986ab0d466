#include "model/store/KWTaskFinder.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWColumn.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char *berlin = "Europe/Berlin";

} // namespace

class KWTaskFinder_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QHash<QString, QString> m_lists;

    QString save(const QString &list, const QString &when, const QString &state)
    {
        TaskBuilder task = aTask("A", berlin).tagged("errand").in(m_lists.value(list));
        const QStringList ends = when.split(u" .. "_s);
        if (when.contains(u':'))
            task.startingAt(when.toLatin1());
        else if (ends.size() == 2)
            task.dueFrom(ends[0].toLatin1(), ends[1].toLatin1());
        else if (when != u"-")
            task.dueOn(when.toLatin1());
        if (state == u"completed") task.completedAt("2030-05-01 08:30");
        const QString id = task.savedIn(*m_store);
        saved(*m_store, [&](ObjectContext &context) {
            KWTask &stored = *context.find<KWTask>(id);
            if (state == u"repeating") stored.set(&KWTaskModel::repeatRule, u"RRULE:FREQ=DAILY"_s);
            if (state == u"abandoned") stored.updateStatus(KWTaskStatusAbandoned);
            if (state == u"trashed") stored.set(&KWTaskModel::isTrashed, true);
            if (state.startsWith(u"assigned")) stored.set(&KWTaskModel::assignee, state.right(1).toInt());
        });
        return id;
    }

    QStringList findersOf(const QString &list)
    {
        using enum TaskInclusion;
        ObjectContext &context = m_store->context();
        const TaskOwner all{m_store->userID()};
        const QString listID = m_lists.value(list);
        const Instant from = at("2030-05-01 00:00", berlin);
        const Instant to = at("2030-05-03 00:00", berlin);
        QStringList found;
        const auto note = [&found](const char *name, qsizetype number) {
            if (number > 1) qFatal("%s finds a task twice", name);
            if (number == 1) found << QString::fromLatin1(name);
        };
        const auto inList = [&](TaskInclusions with, const TaskOwner &owner) {
            return KWTaskFinder::findAllTasksInProject(listID, owner, with, context).size();
        };
        note("list", inList({}, all));
        note("list+late", inList(Overdue, all));
        note("list+done", inList(Completed, all));
        const auto tagged = [&](TaskInclusions with) {
            return KWTaskFinder::findAllTasksHaveTag(u"errand"_s, all.userID, with, context).size();
        };
        note("tag", tagged({}));
        note("tag+done", tagged(Completed));
        note("tag+closed", tagged(ClosedLists));
        const auto dated = [&](TaskInclusions with) {
            return KWTaskFinder::fetchAllOfUser(all, {}, from, to, with, context).size();
        };
        note("range", dated({}));
        note("range+done", dated(Completed));
        note("range+repeats", dated(Repeating));
        note("range+hidden", dated(HiddenProjects));
        note("undated", KWTaskFinder::fetchCompletedAndNoDateBetween(from, to, all, context).size());
        note("repeats", KWTaskFinder::findAllTasksWillRepeatOfUser(all, {}, context).size());
        note("badge-today", KWTaskFinder::countOnBadgeWithType(KWBadgeType::Today, all, context));
        note("badge-late", KWTaskFinder::countOnBadgeWithType(KWBadgeType::OverdueAndToday, all, context));
        note("mine", inList({}, {all.userID, 7}));
        return found;
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", berlin);
        for (const char *name : {"Home", "Closed", "Hidden"})
            m_lists.insert(QString::fromLatin1(name), m_store->makeList(QString::fromLatin1(name)));
        setSaved<KWProject>(*m_store, m_lists[u"Closed"_s], &KWProjectModel::closed, true);
        setSaved<KWProject>(*m_store, m_lists[u"Hidden"_s], &KWProjectModel::showsInSmartList, false);
    }

    void findsATaskWhereItIsAskedFor_data() { addCaseRows("model/task-finder.txt", 5); }
    void findsATaskWhereItIsAskedFor()
    {
        QFETCH(const QStringList, cells);
        const QString id = save(cells[1], cells[2], cells[3]);
        QCOMPARE(findersOf(cells[1]).join(u' '), cells[4] == u"-" ? QString{} : cells[4]);
        const KWProject &list = *m_store->context().find<KWProject>(m_lists.value(cells[1]));
        QCOMPARE(list.orderedTasks().size(), list.numberOfUncompletedTasks());
        QCOMPARE(list.numberOfCompletedTasks(), int(cells[3] == u"completed"));
        const int smart = cells[1] == u"Home";
        QCOMPARE(KWTaskFinder::countOfCompletedTasksOfUser(m_store->userID(), m_store->context()),
                 int(cells[3] == u"completed") * smart);
        QCOMPARE(KWTaskFinder::countOfAbandonedTasksOfUser(m_store->userID(), m_store->context()),
                 int(cells[3] == u"abandoned") * smart);
    }

    void theBadgeCountsDatedItemsOfOpenTasks()
    {
        const QString task = save(u"Home"_s, u"-"_s, u"open"_s);
        saved(*m_store, [&](ObjectContext &context) {
            for (const char *start : {"2030-04-30 10:00", "2030-05-01 10:00", "2030-05-02 10:00"}) {
                KWChecklistItemModel item;
                item.taskID = task;
                item.startDate = at(start, berlin);
                context.insert<KWChecklistItem>(item);
            }
        });
        const auto count = [this](KWBadgeType type) {
            return KWTaskFinder::countOnBadgeWithType(type, {m_store->userID()}, m_store->context());
        };
        QCOMPARE(count(KWBadgeType::Today), 1);
        QCOMPARE(count(KWBadgeType::OverdueAndToday), 2);
        QCOMPARE(count(KWBadgeType::All), 1);
        QCOMPARE(count(KWBadgeType::Inbox), 0);
        setSaved<KWTask>(*m_store, task, &KWTaskModel::status, KWTaskStatusCompleted);
        QCOMPARE(count(KWBadgeType::OverdueAndToday), 0);
    }

    void theLatestCompletedOccurrenceIsFound()
    {
        const QString source = save(u"Home"_s, u"2030-05-02"_s, u"repeating"_s);
        QString latest;
        for (const char *completion : {"2030-04-02 09:00", "2030-04-30 09:00", "2030-04-05 09:00"}) {
            const QString id = aTask("A").completedAt(completion).savedIn(*m_store);
            setSaved<KWTask>(*m_store, id, &KWTaskModel::repeatTaskID, source);
            if (completion[6] == '4' && completion[8] == '3') latest = id;
        }
        const KWTask &task = *m_store->context().find<KWTask>(source);
        QCOMPARE(KWTaskFinder::findLatestCompletedTaskRepeatedByTask(task)->sid(), latest);
    }

    void listsAreFoundByWhatTheyAre()
    {
        setSaved<KWProject>(*m_store, m_lists[u"Home"_s], &KWProjectModel::isShared, true);
        ObjectContext &context = m_store->context();
        const QString user = m_store->userID();
        QCOMPARE(KWProject::orderedOpenProjects(user, context).size(), 3);
        QCOMPARE(KWProject::findClosedProjectsOfUser(user, context).first()->sid(), m_lists[u"Closed"_s]);
        QCOMPARE(KWProject::countOfProjectsOfUser(user, ProjectScope::OpenAndClosed, context), 4);
        QCOMPARE(KWProject::countOfSharedProjectsOfUser(user, context), 1);
    }
};

ORVANE_TEST(KWTaskFinder_test)
#include "KWTaskFinder_test.moc"
