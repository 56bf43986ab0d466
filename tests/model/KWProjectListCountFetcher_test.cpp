#include "model/store/KWProjectListCountFetcher.h"

#include "model/events/NotificationNames.h"
#include "model/events/PendingDeletes.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWFilter.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWUser.h"
#include "model/store/KWFilterService.h"
#include "model/store/KWListDataFetcher.h"
#include "model/store/KWTagService.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <random>

using namespace Qt::StringLiterals;

class KWProjectListCountFetcher_test : public QObject {
    Q_OBJECT

    StoreFixture m_store{"2030-05-01 09:00", "Europe/Berlin"};
    std::mt19937 m_random{4};
    QStringList m_lists;
    QStringList m_tasks;
    QStringList m_filters;

    int roll(int below) { return int(m_random() % unsigned(below)); }

    QList<KWListIdentifier> sidebar() const
    {
        QList<KWListIdentifier> all{KWListIdentifier::group(u"folder"_s)};
        for (const QString &each : {u"t0"_s, u"t1"_s, u"parent"_s})
            all << KWListIdentifier::tag(each);
        for (const auto *each : KWSmartProject::configurable().first(5)) // those that have a number
            all << KWListIdentifier::smartProject(each->identifier());
        for (const QString &each : m_lists)
            all << KWListIdentifier::project(each);
        for (const QString &each : m_filters)
            all << KWListIdentifier::filter(each);
        return all;
    }

    Instant someDate()
    {
        const Instant midnight = m_store.clock.zone().startOfDay(m_store.clock.today());
        return midnight + std::chrono::hours{24 * (roll(12) - 2) + roll(2)};
    }

    void change(KWChecklistItem &item)
    {
        const int what = roll(4);
        if (what == 0) item.set(&KWChecklistItemModel::startDate, std::nullopt);
        if (what == 1) item.updateStatus(roll(2) ? KWTaskStatusOpen : KWTaskStatusCompleted);
        if (what == 2) roll(2) ? item.markDelete() : item.unmarkDelete();
        if (what == 3) item.context().remove(item);
    }

    void change(KWTask &task)
    {
        static constexpr KWTaskStatus statuses[]{KWTaskStatusOpen, KWTaskStatusCompleted,
                                                 KWTaskStatusAbandoned};
        static constexpr const char16_t *texts[]{u"Milk", u"Oat milk, bread", u"Paint"};
        const int what = roll(12);
        if (what == 0) task.set(&KWTaskModel::projectID, m_lists.at(roll(int(m_lists.size()))));
        if (what == 1)
            task.set(&KWTaskModel::tags,
                     QStringList{u"t0"_s, u"t1"_s, u"parent"_s}.mid(roll(3), 1 + roll(3)));
        if (what == 2) task.set(&KWTaskModel::startDate, roll(4) ? std::optional{someDate()} : std::nullopt);
        if (what == 3) task.set(&KWTaskModel::endDate, roll(2) ? std::optional{someDate()} : std::nullopt);
        if (what == 4) task.updateStatus(statuses[roll(3)]);
        if (what == 5) task.set(&KWTaskModel::assignee, roll(3) - 1);
        if (what == 6) task.set(&KWTaskModel::isTrashed, roll(2) == 0);
        if (what == 7) task.set(&KWTaskModel::priority, KWTaskPriorities[std::size_t(roll(4))]);
        if (what == 8) task.set(&KWTaskModel::kind, KWTaskKind(roll(3)));
        if (what == 9) task.set(&KWTaskModel::repeatRule, roll(2) ? u"RRULE:FREQ=DAILY"_s : QString{});
        if (what == 10) task.set(&KWTaskModel::title, QString::fromUtf16(texts[roll(3)]));
        if (what == 11) task.set(roll(2) ? &KWTaskModel::content : &KWTaskModel::desc, u"A list of milk"_s);
        if (roll(12) == 0) task.markDelete();
        if (roll(20) == 0) task.context().remove(task);
    }

    void change(KWProject &list)
    {
        const int what = roll(4);
        if (what == 0) list.set(&KWProjectModel::closed, roll(2) == 0);
        if (what == 1) list.set(&KWProjectModel::showsInSmartList, roll(2) == 0);
        if (what == 2) list.set(&KWProjectModel::groupID, roll(2) ? u"folder"_s : KWProjectGroupIDUngrouped);
        if (what == 3) roll(2) ? list.markDelete() : list.unmarkDelete();
    }

    void changeSomething()
    {
        saved(m_store, [this](ObjectContext &context) {
            if (roll(4) == 0) change(*context.find<KWProject>(m_lists.at(roll(int(m_lists.size())))));
            if (roll(20) == 0)
                KWTag::findTagNamed(u"t0"_s, m_store.userID(), context)
                    ->set(&KWTagModel::parent, roll(2) ? u"parent"_s : QString{});
            if (roll(20) == 0)
                context.find<KWFilter>(m_filters.first())->set(&KWFilterModel::isDeleted, roll(2) == 0);
            if (roll(20) == 0)
                context.find<KWUser>(m_store.userID())->set(&KWUserModel::userServerID, roll(2));
            KWChecklistItemModel item;
            item.taskID = m_tasks.at(roll(int(m_tasks.size())));
            item.startDate = someDate();
            if (context.find<KWTask>(item.taskID)) context.insert<KWChecklistItem>(item);
            if (const auto items = context.fetch<KWChecklistItem>({}); roll(2) && !items.isEmpty())
                change(*items.at(roll(int(items.size()))));
            for (int i = roll(3); i >= 0; --i) {
                KWTask *task = context.find<KWTask>(m_tasks.at(roll(int(m_tasks.size()))));
                if (!task || roll(4) == 0) {
                    task = &context.insert<KWTask>(aTask("New").in(m_lists.first()).model());
                    task->set(&KWTaskModel::userID, m_store.userID());
                    m_tasks << task->sid();
                }
                change(*task);
            }
        });
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const char *name : {"Home", "Filed", "Hidden", "Closed"})
            m_lists << m_store.makeList(QString::fromLatin1(name));
        setSaved<KWProject>(m_store, m_lists[1], &KWProjectModel::groupID, u"folder"_s);
        setSaved<KWProject>(m_store, m_lists[2], &KWProjectModel::showsInSmartList, false);
        setSaved<KWProject>(m_store, m_lists[3], &KWProjectModel::closed, true);
        m_tasks << aTask("First").savedIn(m_store);
        KWTagService tags{m_store.kit().manager(), m_store.userID()};
        for (const QString &each : {u"parent"_s, u"t0"_s, u"t1"_s})
            QVERIFY(tags.create({each}) && (each == u"parent" || tags.setParent(each, u"parent"_s)));
        KWFilterService filters{m_store.kit().manager(), m_store.userID()};
        for (const CaseRow &each : readCases("filters/counted.txt", 1)) {
            const QString rule = each.cells[0].arg(m_lists[0], m_lists[1]);
            m_filters << *filters.create(rule, *CXSmartFilter::parse(rule));
        }
    }

    // Every number, right after every save, is that of the rows the list shows.
    void followsEverySave()
    {
        KWProjectListCountFetcher counts{m_store.kit().manager(), m_store.kit().center()};
        counts.updateCountCache(m_store.userID());
        QTRY_VERIFY(counts.countCached(KWListIdentifier::todayProject()));
        const KWListDataFetcher fetcher{m_store.clock};
        for (int i = 0; i < 300; ++i) {
            changeSomething();
            for (const KWListIdentifier &each : sidebar()) {
                ListDataRequest request{m_store.userID(), each};
                request.includeChecklist = true;
                const auto rows = fetcher.reloadDataModel(request, m_store.context().connection());
                QVERIFY2(rows->size() == counts.countCached(each).value_or(0), qPrintable(each.entityID));
            }
        }
        const auto completed = KWSmartProject::completed().identifier();
        QVERIFY(!counts.countCached(KWListIdentifier::smartProject(completed)));
        const auto tag = KWListIdentifier::tag(u"parent"_s);
        QCOMPARE(KWProjectListCountFetcher::countForTag(tag.entityID, m_store.userID(), m_store.context()),
                 *counts.countCached(tag));
    }

    void leavesOutTheItemsOfTasksThatWaitToBeDeleted()
    {
        KWProjectListCountFetcher counts{m_store.kit().manager(), m_store.kit().center()};
        const auto today = KWListIdentifier::todayProject();
        counts.updateCountCache(m_store.userID());
        QTRY_VERIFY(counts.countCached(today));
        const int before = *counts.countCached(today);
        const QString task =
            aTask("A").dueOn("2030-05-01").withItem("I", "2030-05-01 10:00").savedIn(m_store);
        aTask("B").withItem("I", "2030-05-01 10:00").savedIn(m_store);
        QCOMPARE(counts.countCached(today), std::optional{before + 3});
        const auto tell = [&](KWDelayDeleteStatus status) {
            m_store.kit().center().post(delayDeleteStatusChangedNotification, {},
                                        {{u"type"_s, int(KWDelayDeleteType::Tasks)},
                                         {u"status"_s, int(status)},
                                         {u"taskIDs"_s, QStringList{task}}});
        };
        tell(KWDelayDeleteStatus::Started);
        QCOMPARE(counts.countCached(today), std::optional{before + 1});
        tell(KWDelayDeleteStatus::Undone);
        QCOMPARE(counts.countCached(today), std::optional{before + 3});
    }

    // A save in the background may have been counted before it is told.
    void countsAgainAfterALateSave()
    {
        KWProjectListCountFetcher counts{m_store.kit().manager(), m_store.kit().center()};
        counts.updateCountCache(m_store.userID());
        const auto list = KWListIdentifier::project(m_store.makeList(u"Late"_s));
        const QString task = aTask("A").in(list.entityID).savedIn(m_store);
        QTRY_COMPARE(counts.countCached(list), std::optional{1});
        StoreChange told;
        told.taskMoves.append({std::nullopt, TaskPlace::of(m_store.context().find<KWTask>(task)->model())});
        told.isLate = true;
        m_store.kit().bus().post(told);
        QCOMPARE(counts.countCached(list), std::optional{2});
        QTRY_COMPARE(counts.countCached(list), std::optional{1});
    }

    void joinsRequestsAndForgetsWhoLeft()
    {
        int posted = 0;
        const auto observation =
            m_store.kit().center().addObserver(countChanged, [&](const KWNotification &) { ++posted; });
        KWProjectListCountFetcher counts{m_store.kit().manager(), m_store.kit().center()};
        const auto today = KWListIdentifier::todayProject();
        for (int i = 0; i < 5; ++i)
            counts.updateCountCache(m_store.userID());
        QVERIFY(!counts.countCached(today));
        QTRY_COMPARE(posted, 2); // the one that runs, and one for all that came meanwhile
        counts.updateCountCache(m_store.userID());
        counts.updateCountCache(u"another"_s);
        QVERIFY(!counts.countCached(today));
        QTRY_COMPARE(counts.countCached(today), std::optional{0});
    }
};

ORVANE_TEST(KWProjectListCountFetcher_test)
#include "KWProjectListCountFetcher_test.moc"
