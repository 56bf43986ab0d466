#include "capture/NewTaskService.h"

#include "capture/TaskLines.h"
#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWTeamworker.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/CaseText.h"
#include "support/FailingWrites.h"
#include "support/StoreFixture.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QJsonObject>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

const QString venue = u"Call the venue tomorrow 5pm !high #Errand ~Client launch"_s;

} // namespace

class NewTaskService_test : public QObject {
    Q_OBJECT

    // Made anew for every test.
    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<NewTaskService> m_service;

    // The new task as the next start finds it.
    KWTaskModel added(const QString &text, const NewTaskContext &context = {})
    {
        const Result<KWTaskModel> task = m_service->add(text, context);
        if (!task) qFatal("%s", qUtf8Printable(task.error().sentence));
        m_service.reset();
        m_store->reopen();
        m_service = std::make_unique<NewTaskService>(m_store->kit());
        return m_store->context().find<KWTask>(task->sid)->model();
    }
    QString listOf(const KWTaskModel &task)
    {
        return m_store->context().find<KWProject>(task.projectID)->model().name;
    }
    int countOf(const char *table)
    {
        return int(
            m_store->context().number(qPrintable(u"SELECT count(*) FROM "_s + QString::fromLatin1(table))));
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", "Europe/Berlin");
        m_service = std::make_unique<NewTaskService>(m_store->kit());
    }
    void cleanup()
    {
        m_service.reset();
        m_store.reset();
    }

    void savesWhatTheTitleSays()
    {
        const KWTaskModel task = added(venue);
        QCOMPARE(task.title, u"Call the venue"_s);
        QCOMPARE(task.priority, KWTaskPriorityHigh);
        QCOMPARE(task.tags, QStringList{u"errand"_s});
        QCOMPARE(listOf(task), u"Client launch"_s);
        QCOMPARE(task.startDate, at("2030-05-02 17:00", "Europe/Berlin"));
        QVERIFY(!task.isAllDay && !task.endDate);
        QCOMPARE(task.timeZone, u"Europe/Berlin"_s);
        QCOMPARE(task.reminders, QStringList{u"TRIGGER:PT0S"_s});
        QCOMPARE(task.createdTime, m_store->clock.now());
        const KWTag *tag = KWTag::findTagNamed(u"errand"_s, m_store->userID(), m_store->context());
        QVERIFY(tag);
        QCOMPARE(tag->model().label, u"Errand"_s);
    }

    void usesTagsAndListsThatExist()
    {
        const QString home = m_store->makeList(u"Home Office"_s);
        QCOMPARE(added(u"one #a ~home office tomorrow"_s).projectID, home);
        QCOMPARE(added(u"two #A ~HomeOffice"_s).projectID, home);
        QCOMPARE(countOf("tags"), 1);
        QCOMPARE(countOf("projects"), 2);

        const KWTaskModel first = added(u"three ~Spring sale"_s);
        const KWTaskModel second = added(u"four ~spring SALE"_s);
        QCOMPARE(second.projectID, first.projectID);
        QCOMPARE(countOf("projects"), 3);
        QVERIFY2(second.sortOrder < first.sortOrder, "a new task goes on top");
    }

    void takesFromTheViewWhatTheTextDoesNotSay()
    {
        NewTaskContext context;
        context.presetList = m_store->makeList(u"Work"_s);
        context.presetDay = m_store->clock.today() + days{3};
        context.presetPriority = KWTaskPriorityLow;
        context.presetTagNames = {u"Desk"_s};
        context.presetColumn = u"next"_s;
        context.presetAssignee = 8;

        const KWTaskModel plain = added(u"plain"_s, context);
        QCOMPARE(listOf(plain), u"Work"_s);
        QCOMPARE(plain.startDate, at("2030-05-04 00:00", "Europe/Berlin"));
        QVERIFY(plain.isAllDay);
        QCOMPARE(plain.priority, KWTaskPriorityLow);
        QCOMPARE(plain.tags, QStringList{u"desk"_s});
        QVERIFY(plain.columnID == u"next" && plain.assignee == 8);

        const KWTaskModel said = added(u"said today !high #desk #a ~Inbox"_s, context);
        QCOMPARE(said.projectID, KWProject::inboxIDOfUser(m_store->userID()));
        QCOMPARE(said.startDate, at("2030-05-01 00:00", "Europe/Berlin"));
        QCOMPARE(said.priority, KWTaskPriorityHigh);
        QCOMPARE(said.tags, (QStringList{u"desk"_s, u"a"_s}));
        QVERIFY2(said.columnID.isEmpty() && said.assignee == KWTaskAssignedToNobody,
                 "column and member belong to the list of the view");
    }

    void letsTheHandDecideUntilItGivesUp()
    {
        NewTaskReferees referees{m_store->kit()};
        referees.project.setManual(m_store->makeList(u"Work"_s));
        referees.priority.setManual(KWTaskPriorityNone);
        referees.date.setManual(KWTaskDateTimeReminderModel{});
        const auto saved = [&] {
            const auto made = m_service->save(m_service->compose(venue, {}, referees));
            return made ? made->tasks.first() : KWTaskModel{};
        };
        const KWTaskModel byHand = saved();
        QCOMPARE(listOf(byHand), u"Work"_s);
        QCOMPARE(byHand.priority, KWTaskPriorityNone);
        QVERIFY(!byHand.startDate && byHand.timeZone.isEmpty());
        QCOMPARE(countOf("projects"), 2);

        referees.restoreToPreset();
        const KWTaskModel asTyped = saved();
        QCOMPARE(listOf(asTyped), u"Client launch"_s);
        QCOMPARE(asTyped.priority, KWTaskPriorityHigh);
        QCOMPARE(asTyped.startDate, at("2030-05-02 17:00", "Europe/Berlin"));
    }

    void makesNotesInNotesLists()
    {
        m_store->makeList(u"Notes"_s, KWProjectKindNote);
        const KWTaskModel note = added(u"idea !high ~Notes"_s);
        QCOMPARE(note.kind, KWTaskKindNote);
        QCOMPARE(note.priority, KWTaskPriorityNone);

        NewTaskContext filter;
        filter.isNotedFilter = true;
        const KWTaskModel inFilter = added(u"idea !high"_s, filter);
        QCOMPARE(inFilter.kind, KWTaskKindNote);
        QCOMPARE(inFilter.priority, KWTaskPriorityNone);
    }

    void goesToTheInboxWhenTheListTakesNoTasks()
    {
        NewTaskContext context;
        context.presetList = u"gone"_s;
        QCOMPARE(added(u"one"_s, context).projectID, KWProject::inboxIDOfUser(m_store->userID()));
        const QList<std::function<void(KWProject &)>> closings{
            [](KWProject &list) { list.markDelete(); },
            [](KWProject &list) { list.set(&KWProjectModel::closed, true); },
            [](KWProject &list) { list.set(&KWProjectModel::permission, KWProjectPermissionComment); }};
        for (const auto &each : closings) {
            context.presetList = m_store->makeList(u"Work"_s);
            each(*m_store->context().find<KWProject>(*context.presetList));
            QVERIFY(m_store->context().save());
            QCOMPARE(added(u"two"_s, context).projectID, KWProject::inboxIDOfUser(m_store->userID()));
        }
        QCOMPARE(listOf(added(u"three ~Work"_s)), u"Inbox"_s); // the one that may only be read
    }

    void assignsToMembersOfTheListItGoesTo()
    {
        const QString list = m_store->makeList(u"Garden"_s);
        const QString ask = u"ask @North"_s;
        NewTaskContext context;
        context.presetList = list;
        context.presetAssignee = 8;
        QCOMPARE(added(ask, context).title, ask);
        saved(*m_store, [&list](ObjectContext &records) {
            KWTeamworkerModel member;
            member.projectID = list;
            member.userServerID = 7;
            member.name = u"north"_s;
            records.insert<KWTeamworker>(std::move(member));
            records.find<KWProject>(list)->set(&KWProjectModel::isShared, true);
        });
        QVERIFY(!m_service->recognize(ask).assignedTeamworker); // goes to the inbox
        QCOMPARE(m_service->dryRun(u"ask @North ~Garden"_s)[u"assignee"_s], u"north"_s);
        const KWTaskModel task = added(ask, context);
        QCOMPARE(task.title, u"ask"_s);
        QCOMPARE(task.assignee, 7);
        QCOMPARE(added(u"ask"_s, context).assignee, 8);

        setSaved<KWProject>(*m_store, list, &KWProjectModel::permission, KWProjectPermissionRead);
        const KWTaskModel elsewhere = added(ask, context);
        QCOMPARE(elsewhere.projectID, KWProject::inboxIDOfUser(m_store->userID()));
        QCOMPARE(elsewhere.assignee, KWTaskAssignedToNobody);
    }

    void cutsTextsIntoLines_data() { addCaseRows("tokens/lines.txt", 3); }
    void cutsTextsIntoLines()
    {
        QFETCH(QStringList, cells);
        const QString text = quotedText(cells[0]);
        QCOMPARE(taskLines(text).join(u'/'), quotedText(cells[1]));
        QCOMPARE(m_service->shouldCreateMutilTask(text), cells[2] == u"yes");
    }

    // On top of the list, or at its end, in the order of the lines.
    void addsATaskForEveryLine_data()
    {
        QTest::addColumn<QString>("position");
        QTest::addColumn<QString>("order");
        QTest::newRow("top") << u"top"_s << u"milk, bread, eggs, old"_s;
        QTest::newRow("bottom") << u"bottom"_s << u"old, milk, bread, eggs"_s;
    }
    void addsATaskForEveryLine()
    {
        QFETCH(QString, position);
        m_store->kit().defaults().set(Settings::newTaskPosition, position);
        NewTaskContext context;
        context.presetList = m_store->makeList(u"Shopping"_s);
        QVERIFY(m_service->add(u"old"_s, context));
        int saves = 0;
        const auto counting =
            m_store->kit().bus().registerEventBus([&saves](const StoreChange &) { ++saves; });
        NewTaskReferees referees{m_store->kit()};
        const auto made = m_service->createMutilTask(
            u"- milk #New ~Weekend\n- [ ] milk\n\n2. bread tomorrow #new\n!high\neggs\nrice ~weekend"_s,
            context, referees);
        QVERIFY(made);
        QCOMPARE(saves, 1);
        QCOMPARE(countOf("tags"), 1);
        QCOMPARE(countOf("projects"), 3);
        const auto titlesIn = [this](const QString &list) {
            QStringList titles;
            for (const KWTask *each : m_store->context().find<KWProject>(list)->orderedTasks())
                titles.append((*each)->title);
            return titles.join(u", "_s);
        };
        QTEST(titlesIn(*context.presetList), "order");
        QCOMPARE(titlesIn(made->tasks.first().projectID), u"milk, rice"_s);
        QCOMPARE(made->tasks.size(), 5);
        QCOMPARE(made->tasks[2].title, u"bread"_s);
        QCOMPARE(made->tasks[2].startDate, at("2030-05-02 00:00", "Europe/Berlin"));

        QVERIFY(made->undo.undo(m_store->kit().manager()));
        QCOMPARE(titlesIn(*context.presetList), u"old"_s);
    }

    void addsAllLinesOrNone()
    {
        const QString line = u"one\n"_s;
        const auto isRefusedFor = [this](const QString &lines, const QString &reason) {
            NewTaskReferees referees{m_store->kit()};
            return isRefused(m_service->createMutilTask(lines, {}, referees), reason);
        };
        QVERIFY(isRefusedFor(line.repeated(10'001), u"10"_s));
        QVERIFY(isRefusedFor(u"#a\n!high"_s, u"titles"_s));
        QVERIFY(isRefusedFor(u" \n"_s, u"white space"_s));
        bool failed = true;
        int write = 1;
        for (; failed; ++write) {
            FailingWrites writes;
            StoreFixture store;
            NewTaskService service{store.kit()};
            NewTaskReferees referees{store.kit()};
            writes.failAt(write);
            const auto made = service.createMutilTask(u"one #a\ntwo ~Weekend"_s, {}, referees);
            failed = writes.hasFailed();
            QCOMPARE(bool(made), !failed);
            for (const char *counted : {"SELECT count(*) FROM tasks", "SELECT 2 * count(*) FROM tags",
                                        "SELECT 2 * (count(*) - 1) FROM projects"})
                QCOMPARE(store.context().number(counted), failed ? 0 : 2);
        }
        QVERIFY2(write > 3, "more than one write was to fail");
        QCOMPARE(countOf("tasks") + countOf("tags"), 0);
    }

    void refusesWhatLeavesNoTitle_data() { addCaseRows("tokens/untitled.txt", 2); }
    void refusesWhatLeavesNoTitle()
    {
        QFETCH(QStringList, cells);
        const Result<KWTaskModel> task = m_service->add(quotedText(cells[0]));
        QVERIFY(isRefused(task, u"Type a title for the task: ") && isRefused(task, cells[1]));
        QCOMPARE(countOf("tasks") + countOf("tags"), 0);
        QCOMPARE(countOf("projects"), 1);
    }

    void refusesWithoutAccount()
    {
        QVERIFY(m_store->account().signOut());
        QVERIFY(isRefused(m_service->add(u"Buy milk"_s)));
        QCOMPARE(countOf("tasks"), 0);
    }

    void losesNothingOfOddTitles_data()
    {
        addCaseRows("tokens/odd-titles.txt", 2);
        const QString hugeTitle = u"\"%1!\""_s.arg(u"buy milk "_s.repeated(11'111));
        QTest::newRow("100,000 characters") << QStringList{hugeTitle, hugeTitle};
    }
    void losesNothingOfOddTitles()
    {
        QFETCH(QStringList, cells);
        QCOMPARE(added(quotedText(cells[0])).title, quotedText(cells[1]));
    }

    void followsListsAndSettings()
    {
        const auto listNamedIn = [this](const QString &text) {
            return m_service->recognize(text).parsedProjectResult->id;
        };
        QVERIFY(listNamedIn(u"a ~Work"_s).isEmpty());
        const QString work = m_store->makeList(u"Work"_s);
        QCOMPARE(listNamedIn(u"a ~Work"_s), work);
        m_store->context().find<KWProject>(work)->set(&KWProjectModel::name, u"Desk"_s);
        QVERIFY(m_store->context().save());
        QCOMPARE(listNamedIn(u"a ~Desk"_s), work);

        KWSmartRecognitionConfiguration unread;
        unread.dateEnabled = false;
        unread.save(m_store->userID(), m_store->kit().defaults(), m_store->kit().center());
        QCOMPARE(added(u"call tomorrow"_s).title, u"call tomorrow"_s);
    }
};

ORVANE_TEST(NewTaskService_test)
#include "NewTaskService_test.moc"
