#include "lists/KWTaskListService.h"

#include "RowText.h"
#include "calendar/KWRepeatInstanceService.h"
#include "model/account/AccountSettings.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWFilter.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <random>

using namespace Qt::StringLiterals;

class KWTaskListService_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<KWTaskListService> m_service;
    KWListIdentifier m_home;

    KWTaskListService &list() { return *m_service; }
    QString shown() { return RowText::textOf(flatRows(list().categories(), list().folded())); }
    // "[Completed 7] 5 …": the headers, how many rows they have, and whether there are more.
    QString numbers()
    {
        QStringList texts;
        for (const KWTaskCategory &each : list().categories())
            texts << (each.isLoadMore()
                          ? u"…"_s
                          : u"[%1 %2] %3"_s.arg(each.title()).arg(each.count()).arg(each.models().size()));
        return texts.join(u' ');
    }
    void start()
    {
        m_service = std::make_unique<KWTaskListService>(m_store->kit().manager(), m_store->account(),
                                                        m_store->kit().center(), m_store->kit().bus());
    }
    void startAgain()
    {
        m_service.reset();
        m_store->reopen();
        start();
    }
    void addClosed(int count, const char *completed, KWTaskStatus status = KWTaskStatusCompleted)
    {
        saved(*m_store, [&](ObjectContext &context) {
            for (int i = 0; i < count; ++i) {
                KWTaskModel task = aTask("Done").in(m_home.entityID).completedAt(completed).model();
                task.status = status;
                context.insert<KWTask>(task);
            }
        });
    }
    static KWListIdentifier smart(const KWSmartProject &list)
    {
        return KWListIdentifier::smartProject(list.identifier());
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_home = KWListIdentifier::project(m_store->makeList(u"Home"_s));
        start();
    }
    void cleanup()
    {
        m_service.reset();
        m_store.reset();
    }

    void showsSomeClosedTasksAndMoreOnDemand()
    {
        aTask("Pay rent").in(m_home.entityID).dueOn("2030-05-01").savedIn(*m_store);
        addClosed(30, "2030-04-30 12:00", KWTaskStatusAbandoned);
        list().select(m_home);
        QCOMPARE(numbers(), u"[ 1] 1 [Completed 30] 5 …"_s);
        list().loadMore();
        QTRY_COMPARE(numbers(), u"[ 1] 1 [Completed 30] 25 …"_s);
        list().loadMore();
        QTRY_COMPARE(numbers(), u"[ 1] 1 [Completed 30] 30"_s);
        list().select(smart(KWSmartProject::all()));
        QCOMPARE(numbers(), u"[Today 1] 1"_s); // nothing was closed today
        addClosed(1, "2030-05-01 08:00");
        QCOMPARE(numbers(), u"[Today 1] 1 [Completed 1] 1"_s);
        list().select(m_home);
        QCOMPARE(numbers(), u"[ 1] 1 [Completed 31] 5 …"_s);

        QVERIFY(list().setShowsCompleted(false));
        QCOMPARE(numbers(), u"[ 1] 1"_s);
        startAgain();
        list().select(m_home);
        QVERIFY(!list().showsCompleted());
        list().select(KWListIdentifier::tag(u"errand"_s));
        QVERIFY(list().showsCompleted());
        AccountSettings settings{m_store->kit().manager(), m_store->kit().center(), m_store->userID()};
        QVERIFY(settings.change([](KWUserSettingsModel &each) { each.showCompleted = false; }));
        QVERIFY(!list().showsCompleted());
    }

    void showsWhatComesLaterOfRepeatingTasks()
    {
        KWRepeatInstanceService repeats{m_store->kit().manager(), m_store->account(), m_store->kit().center(),
                                        m_store->clock};
        list().onOccurrencesNeeded = [&repeats](Instant from, Instant to) {
            repeats.generateInstances(from, to);
        };
        const QString task = aTask("Water")
                                 .dueOn("2030-05-01")
                                 .with(&KWTaskModel::repeatRule, u"FREQ=DAILY"_s)
                                 .savedIn(*m_store);
        aTask("Pay rent").dueOn("2030-05-02").savedIn(*m_store);
        list().select(smart(KWSmartProject::tomorrow()));
        QTRY_COMPARE(numbers(), u"[Tomorrow 2] 2"_s);
        list().select(smart(KWSmartProject::next7days()));
        QTRY_COMPARE(numbers(),
                     u"[Today 1] 1 [Tomorrow 2] 2 [Friday 1] 1 [Saturday 1] 1 [Sunday 1] 1 [Monday 1] 1 "
                     "[Tuesday 1] 1"_s);
        QSet<QString> ids;
        int tasks = 0;
        for (const TaskListRow &each : flatRows(list().categories(), {})) {
            ids.insert(each.id);
            tasks += each.isTask();
        }
        QCOMPARE(ids.size(), 7 + 8);
        QCOMPARE(tasks, 2);
        setSaved<KWTask>(*m_store, task, &KWTaskModel::repeatRule, u"FREQ=DAILY;INTERVAL=4"_s);
        QTRY_COMPARE(numbers(), u"[Today 1] 1 [Tomorrow 1] 1 [Sunday 1] 1"_s);
        setSaved<KWTask>(*m_store, task, &KWTaskModel::status, KWTaskStatusCompleted);
        QTRY_COMPARE(numbers(), u"[Tomorrow 1] 1"_s);
    }

    void readsListsOfClosedTasksInWholeDays()
    {
        addClosed(40, "2030-05-01 08:00");
        addClosed(30, "2030-04-30 12:00");
        addClosed(60, "2030-04-01 12:00");
        list().select(smart(KWSmartProject::completed()));
        QVERIFY(!list().isSortable());
        QCOMPARE(numbers(), u"[Today 40] 40 [Yesterday 30] 30 …"_s);
        list().loadMore();
        QTRY_VERIFY(!list().categories().last().isLoadMore());
        QCOMPARE(list().categories().size(), 3);
        list().select(smart(KWSmartProject::abandoned()));
        QCOMPARE(numbers(), QString{});
    }

    void remembersHowEachListIsSorted()
    {
        saved(*m_store, [this](ObjectContext &context) {
            const auto add = [&]<class Record>(std::type_identity<Record>) {
                typename Record::Model model;
                model.sid = model.name = u"errand"_s;
                model.userID = m_store->userID();
                context.insert<Record>(model);
            };
            add(std::type_identity<KWTag>{});
            add(std::type_identity<KWProjectGroup>{});
            add(std::type_identity<KWFilter>{});
            context.inserted<KWFilter>().first()->set(&KWFilterModel::rule, uR"({"kind": ["note"]})"_s);
        });
        const QString notes = m_store->makeList(u"Notes"_s, KWProjectKindNote);
        const QList<std::pair<KWListIdentifier, KWTaskSortType>> lists{
            {m_home, KWTaskSortTypeCustom},
            {KWListIdentifier::project(notes), KWTaskSortTypeCreatedTime},
            {KWListIdentifier::group(u"errand"_s), KWTaskSortTypeProject},
            {KWListIdentifier::tag(u"errand"_s), KWTaskSortTypeProject},
            {{u"errand"_s, KWListIdentifierType::Filter}, KWTaskSortTypeProject},
            {smart(KWSmartProject::all()), KWTaskSortTypeDate},
        };
        for (const auto &[each, initial] : lists) {
            list().select(each);
            QCOMPARE(list().sortType(), initial);
            QVERIFY(list().setSortType(KWTaskSortTypeTitle));
            QCOMPARE(list().sortMenu().selectedType, KWTaskSortTypeTitle);
        }
        startAgain();
        for (const auto &[each, initial] : lists) {
            list().select(each);
            QCOMPARE(list().sortType(), KWTaskSortTypeTitle);
        }
        QVERIFY(!list().sortMenu().isNormalProject);
        list().select({u"errand"_s, KWListIdentifierType::Filter});
        QVERIFY(list().sortMenu().isNoteKindFilter);
    }

    void showsNothingOfAListThatCannotBeRead()
    {
        aTask("Pay rent").in(m_home.entityID).savedIn(*m_store);
        saved(*m_store, [this](ObjectContext &context) {
            KWFilterModel filter;
            filter.sid = u"broken"_s;
            filter.userID = m_store->userID();
            filter.rule = u"?"_s;
            context.insert<KWFilter>(filter);
        });
        list().select(m_home);
        QStringList failures;
        list().onFailure = [&failures](const QString &sentence) { failures << sentence; };
        list().select({u"broken"_s, KWListIdentifierType::Filter});
        QCOMPARE(failures.size(), 1);
        QCOMPARE(shown(), QString{});
        list().select(m_home);
        QCOMPARE(shown(), u"Pay rent"_s);
    }

    void remembersWhatIsFolded()
    {
        aTask("a").in(m_home.entityID).with(&KWTaskModel::sid, u"a"_s).savedIn(*m_store);
        aTask("b").in(m_home.entityID).with(&KWTaskModel::parentId, u"a"_s).savedIn(*m_store);
        addClosed(1, "2030-05-01 08:00");
        QStringList told;
        const auto observation = m_store->kit().center().addObserver(
            collapseStateChanged, [&](const KWNotification &each) { told << each.object.toString(); });
        list().select(m_home);
        int changes = 0;
        list().onRowsChanged = [&changes] { ++changes; };
        list().setTaskFolded(u"a"_s, true);
        list().setTaskFolded(u"a"_s, true);
        list().setSectionFolded(u"completed"_s, true);
        QCOMPARE(changes, 2);
        QCOMPARE(told, QStringList{u"a"_s});
        for (int start = 1; start <= 2; ++start, startAgain(), list().select(m_home))
            QCOMPARE(shown(), u"a+ [Completed 1]+"_s);
        list().select(smart(KWSmartProject::all()));
        QCOMPARE(shown(), u"[No Date 2] a .b [Completed 1] Done"_s);
    }

    void showsDatedItemsWithTheirTask()
    {
        const QString task = aTask("Move")
                                 .in(m_home.entityID)
                                 .withItem("Boxes", "2030-04-30 09:00")
                                 .withItem("Key", "2030-05-01 12:00")
                                 .dueOn("2030-05-01")
                                 .savedIn(*m_store);
        list().select(KWListIdentifier::todayProject());
        QCOMPARE(shown(), u"[Overdue 1] Boxes [Today 2] Move Key"_s);
        const auto item = [](ObjectContext &context) {
            return context.fetch<KWChecklistItem>({.where = "title = 'Key'"}).first();
        };
        saved(*m_store, [&](ObjectContext &context) {
            item(context)->set(&KWChecklistItemModel::startDate, at("2030-05-02 12:00"));
        });
        QCOMPARE(shown(), u"[Overdue 1] Boxes [Today 1] Move"_s);
        list().select(smart(KWSmartProject::tomorrow()));
        QCOMPARE(shown(), u"[Tomorrow 1] Key"_s);
        const auto tell = [&](KWDelayDeleteStatus status) {
            m_store->kit().center().post(delayDeleteStatusChangedNotification, {},
                                         {{u"type"_s, int(KWDelayDeleteType::Tasks)},
                                          {u"status"_s, int(status)},
                                          {u"taskIDs"_s, QStringList{task}}});
        };
        tell(KWDelayDeleteStatus::Started);
        QCOMPARE(shown(), QString{});
        tell(KWDelayDeleteStatus::Undone);
        QCOMPARE(shown(), u"[Tomorrow 1] Key"_s);
        saved(*m_store, [&](ObjectContext &context) { item(context)->updateStatus(KWTaskStatusCompleted); });
        QCOMPARE(shown(), QString{});
        list().select(m_home);
        QCOMPARE(shown(), u"Move"_s);
    }

    void takesAChangedTaskIntoALongList()
    {
        saved(*m_store, [this](ObjectContext &context) {
            for (int i = 0; i < 200; ++i)
                context.insert<KWTask>(aTask("Task")
                                           .in(m_home.entityID)
                                           .ordered(i)
                                           .with(&KWTaskModel::sid, QString::number(i))
                                           .model());
        });
        list().select(m_home);
        QTRY_COMPARE(numbers(), u"[ 200] 200"_s);
        const auto set = [this](const char *id, auto member, auto value) {
            setSaved<KWTask>(*m_store, QString::fromLatin1(id), member, value);
        };
        set("7", &KWTaskModel::title, u"Seven"_s);
        QCOMPARE(list().categories().first().models().at(7).title, u"Seven"_s);
        set("7", &KWTaskModel::sortOrder, 1000);
        QCOMPARE(list().categories().first().models().last().title, u"Seven"_s);
        set("9", &KWTaskModel::parentId, u"0"_s);
        set("8", &KWTaskModel::parentId, u"0"_s);
        set("0", &KWTaskModel::childIds, QStringList({u"9"_s, u"8"_s}));
        QCOMPARE(list().categories().first().models().at(1).sid, u"9"_s);
        set("5", &KWTaskModel::projectID, KWProject::inboxIDOfUser(m_store->userID()));
        saved(*m_store, [](ObjectContext &context) {
            context.find<KWTask>(u"4"_s)->updateStatus(KWTaskStatusCompleted);
            context.find<KWTask>(u"3"_s)->set(&KWTaskModel::isTrashed, true);
        });
        QCOMPARE(numbers(), u"[ 197] 197 [Completed 1] 1"_s);
        set("5", &KWTaskModel::projectID, m_home.entityID);
        QCOMPARE(numbers(), u"[ 198] 198 [Completed 1] 1"_s);
    }

    void keepsALongListAsIfItWereReadAnew_data()
    {
        QTest::addColumn<KWTaskSortType>("sortType");
        QTest::addColumn<bool>("hasItems");
        for (const KWTaskSortType each : {KWTaskSortTypeCustom, KWTaskSortTypeDate, KWTaskSortTypePriority,
                                          KWTaskSortTypeTitle, KWTaskSortTypeTag})
            QTest::newRow(textOf(each).data()) << each << false;
        QTest::newRow("with checklist items") << KWTaskSortTypePriority << true;
    }
    void keepsALongListAsIfItWereReadAnew()
    {
        QFETCH(const KWTaskSortType, sortType);
        QFETCH(const bool, hasItems);
        const auto shownList = hasItems ? smart(KWSmartProject::next7days()) : m_home;
        std::mt19937 random{7};
        const auto roll = [&random](int below) { return int(random() % unsigned(below)); };
        saved(*m_store, [&](ObjectContext &context) {
            KWTaskModel task = aTask("Task").in(m_home.entityID).dueOn("2030-05-01").model();
            if (hasItems) task.kind = KWTaskKindChecklist;
            for (int i = 0; i < 150; ++i) {
                task.sid = QString::number(i);
                task.sortOrder = i * 5 % 7;
                context.insert<KWTask>(task);
                KWChecklistItemModel item;
                item.taskID = task.sid;
                item.startDate = task.startDate;
                context.insert<KWChecklistItem>(item);
            }
        });
        list().select(shownList);
        QVERIFY(list().setSortType(sortType));
        QTRY_COMPARE(list().rows().size(), hasItems ? 300 : 150);
        for (int i = 0; i < 40; ++i) {
            saved(*m_store, [&](ObjectContext &context) {
                for (int k = roll(2); k >= 0; --k) {
                    KWTask &task = *context.find<KWTask>(QString::number(roll(150)));
                    const Instant today = m_store->clock.zone().startOfDay(m_store->clock.today());
                    const int what = roll(8);
                    if (what <= 1) task.set(&KWTaskModel::startDate, today + std::chrono::days{roll(4) - 1});
                    if (what == 2) task.set(&KWTaskModel::priority, KWTaskPriorities[std::size_t(roll(4))]);
                    if (what == 3) task.set(&KWTaskModel::title, u"Task %1"_s.arg(roll(20)));
                    if (what == 4) task.set(&KWTaskModel::sortOrder, roll(9));
                    if (what == 5)
                        task.set(&KWTaskModel::pinnedDate, roll(2) ? std::optional{today} : std::nullopt);
                    if (what == 6 && i > 20) task.set(&KWTaskModel::parentId, QString::number(roll(150)));
                    if (what == 7) task.updateStatus(roll(2) ? KWTaskStatusCompleted : KWTaskStatusOpen);
                }
            });
            KWTaskListService anew{m_store->kit().manager(), m_store->account(), m_store->kit().center(),
                                   m_store->kit().bus()};
            anew.select(shownList);
            QTRY_VERIFY(anew.categories() == list().categories());
        }
    }
};

ORVANE_TEST(KWTaskListService_test)
#include "KWTaskListService_test.moc"
