#include "model/store/KWTaskFinder.h"

#include "model/account/KWPublicUserProfileManager.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/records/KWTeamworker.h"
#include "support/Answers.h"
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
        return task.when(when).inState(state, "2030-05-01 08:30").savedIn(*m_store);
    }

    QString findersOf(const QString &list)
    {
        using enum TaskInclusion;
        using Finder = KWTaskFinder;
        ObjectContext &context = m_store->context();
        const TaskOwner all{m_store->userID()};
        const Instant from = at("2030-05-01 00:00", berlin);
        const Instant to = at("2030-05-03 00:00", berlin);
        const auto inList = [&](TaskInclusions with, const TaskOwner &owner) {
            return Finder::findAllTasksInProject(m_lists.value(list), owner, with, context).size();
        };
        const auto tagged = [&](TaskInclusions with) {
            return Finder::findAllTasksHaveTag(u"errand"_s, all.userID, with, context).size();
        };
        const auto dated = [&](TaskInclusions with) {
            return Finder::fetchAllOfUser(all, {}, from, to, with, context).size();
        };
        const std::initializer_list<std::pair<const char *, qsizetype>> counts{
            {"list", inList({}, all)},
            {"list+late", inList(Overdue, all)},
            {"list+done", inList(Completed, all)},
            {"tag", tagged({})},
            {"tag+done", tagged(Completed)},
            {"tag+closed", tagged(ClosedLists)},
            {"range", dated({})},
            {"range+done", dated(Completed)},
            {"range+repeats", dated(Repeating)},
            {"range+hidden", dated(HiddenProjects)},
            {"undated", Finder::fetchCompletedAndNoDateBetween(from, to, all, context).size()},
            {"repeats", Finder::findAllTasksWillRepeatOfUser(all, {}, context).size()},
            {"badge-today", Finder::countOnBadgeWithType(KWBadgeType::Today, all, context)},
            {"badge-late", Finder::countOnBadgeWithType(KWBadgeType::OverdueAndToday, all, context)},
            {"mine", inList({}, {all.userID, 7})}};
        QStringList found;
        for (const auto &[name, count] : counts) {
            if (count > 1) qFatal("%s finds a task twice", name);
            if (count == 1) found << QString::fromLatin1(name);
        }
        return found.isEmpty() ? u"-"_s : found.join(u' ');
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
        save(cells[1], cells[2], cells[3]);
        QCOMPARE(findersOf(cells[1]), cells[4]);
        ObjectContext &context = m_store->context();
        const KWProject &list = *context.find<KWProject>(m_lists.value(cells[1]));
        QCOMPARE(list.orderedTasks().size(), list.numberOfUncompletedTasks());
        const QString user = m_store->userID();
        QCOMPARE(KWTaskFinder::countOfCompletedTasksOfUser(user, context), int(cells[3] == u"completed"));
        QCOMPARE(list.numberOfCompletedTasks(), int(cells[3] == u"completed"));
        QCOMPARE(KWTaskFinder::countOfAbandonedTasksOfUser(user, context), int(cells[3] == u"abandoned"));
    }

    void theBadgeCountsDatedItemsOfOpenTasks()
    {
        TaskBuilder builder = aTask("A", berlin).in(m_lists[u"Home"_s]);
        for (const char *time : {"2030-04-30 10:00", "2030-05-01 10:00", "2030-05-02 10:00"})
            builder.withItem("item", time);
        const QString task = builder.savedIn(*m_store);
        const auto count = [this](KWBadgeType type) {
            return KWTaskFinder::countOnBadgeWithType(type, {m_store->userID()}, m_store->context());
        };
        QCOMPARE(count(KWBadgeType::Today), 1);
        QCOMPARE(count(KWBadgeType::OverdueAndToday), 2);
        QCOMPARE(count(KWBadgeType::All), 1);
        QCOMPARE(count(KWBadgeType::Inbox), 0);
        setSaved<KWTask>(*m_store, task, &KWTaskModel::kind, KWTaskKindText);
        QCOMPARE(count(KWBadgeType::OverdueAndToday), 0);
        setSaved<KWTask>(*m_store, task, &KWTaskModel::kind, KWTaskKindChecklist);
        setSaved<KWTask>(*m_store, task, &KWTaskModel::status, KWTaskStatusCompleted);
        QCOMPARE(count(KWBadgeType::OverdueAndToday), 0);
    }

    void theLatestCompletedOccurrenceIsFound()
    {
        const QString source = save(u"Home"_s, u"2030-05-02"_s, u"repeating"_s);
        for (const char *time : {"2030-04-02 09:00", "2030-04-30 09:00", "2030-04-05 09:00"})
            aTask(time).completedAt(time).with(&KWTaskModel::repeatTaskID, source).savedIn(*m_store);
        const KWTask &task = *m_store->context().find<KWTask>(source);
        const KWTask *latest = KWTaskFinder::findLatestCompletedTaskRepeatedByTask(task);
        QCOMPARE((*latest)->title, u"2030-04-30 09:00"_s);
    }

    void listsAndTheirMembersAreFound()
    {
        setSaved<KWProject>(*m_store, m_lists[u"Home"_s], &KWProjectModel::isShared, true);
        ObjectContext &context = m_store->context();
        const QString user = m_store->userID();
        QCOMPARE(KWProject::orderedOpenProjects(user, context).size(), 3);
        QCOMPARE(KWProject::findClosedProjectsOfUser(user, context).size(), 1);
        QCOMPARE(KWProject::countOfProjectsOfUser(user, ProjectScope::OpenAndClosed, context), 4);
        QCOMPARE(KWProject::countOfSharedProjectsOfUser(user, context), 1);

        for (const QString &name : {u"zebra"_s, u"Part 10"_s, u"part 2"_s, u"Äpfel"_s, u"birne"_s}) {
            KWTeamworkerModel member;
            member.userID = user;
            member.userServerID = name.size(); // seven letters make one of them the seventh
            member.name = name;
            context.insert<KWTeamworker>(member);
        }
        const QList<KWTeamworker *> members = context.inserted<KWTeamworker>();
        QCOMPARE(joined(KWTeamworker::sortedByName(members, QLocale{u"de_DE"_s}),
                        [](const KWTeamworker *each) { return each->model().name + u','; }),
                 u"Äpfel, birne, part 2, Part 10, zebra,"_s);
        KWPublicUserProfileManager people{m_store->kit().manager(), user};
        QVERIFY(context.save() && !people.profile(8));
        QCOMPARE(people.profile(7)->name, u"Part 10"_s);
    }
};

ORVANE_TEST(KWTaskFinder_test)
#include "KWTaskFinder_test.moc"
