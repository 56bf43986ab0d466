#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWTeamworker.h"
#include "model/store/ChecklistText.h"
#include "model/store/KWTaskEditor.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

// "-" is nothing; "§" keeps the white space behind it.
QString textOf(QString cell) { return cell == u"-" ? QString{} : cell.replace(u'¶', u'\n').remove(u'§'); }

QString wordsOf(const ChecklistText::Item &item)
{
    return (item.isCompleted ? u"x"_s : QString{}) + item.title;
}

} // namespace

/// What the detail edits of a task besides its texts; every edit can be taken back.
class TaskParts_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    std::optional<KWTaskEditor> m_editor;

    KWTaskModel task(const QString &id) { return m_store->context().find<KWTask>(id)->model(); }
    QString parts(const QString &id)
    {
        const TaskWithParts found = *m_editor->read(id);
        return found.task.description() + u'|' + joined(found.items, [](const KWChecklistItemModel &each) {
                   return wordsOf({each.title, each.isCompleted()});
               });
    }
    bool takeBack(const Result<UndoToken> &done) { return bool(done->undo(m_store->kit().manager())); }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", "Europe/Berlin");
        m_editor.emplace(m_store->kit().manager());
    }

    void readsTextsAsChecklistsAndBack_data() { addCaseRows("model/checklist-texts.txt", 4); }
    void readsTextsAsChecklistsAndBack()
    {
        QFETCH(QStringList, cells);
        const ChecklistText checklist = ChecklistText::ofText(textOf(cells.at(0)));
        QCOMPARE(checklist.description, textOf(cells.at(1)));
        QStringList items;
        for (const ChecklistText::Item &each : checklist.items)
            items.append(wordsOf(each));
        QCOMPARE(items.join(u';'), textOf(cells.at(2)));
        QCOMPARE(checklist.toText(), textOf(cells.at(3)));
        if (!checklist.items.isEmpty()) QCOMPARE(ChecklistText::ofText(checklist.toText()), checklist);
    }

    void changesTheKindWithoutLosingText()
    {
        const QString id = aTask("Cake").with(&KWTaskModel::content, u"Flour\nEggs"_s).savedIn(*m_store);
        const auto made = m_editor->setKind(id, KWTaskKindChecklist);
        QCOMPARE(parts(id), u"|Flour Eggs"_s);
        QVERIFY(m_editor->tickItem(m_editor->read(id)->items.last().sid));
        QVERIFY(m_editor->setContent(id, u"For Sunday"_s));
        QVERIFY(!takeBack(made)); // the tick would be lost
        const auto noted = m_editor->setKind(id, KWTaskKindNote);
        QCOMPARE(parts(id), u"For Sunday\n\n- [ ] Flour\n- [x] Eggs|"_s);
        QVERIFY(task(id).kind == KWTaskKindNote && task(id).desc.isEmpty());
        QVERIFY(takeBack(noted));
        QCOMPARE(parts(id), u"For Sunday|Flour xEggs"_s);
        QVERIFY(m_editor->setKind(id, KWTaskKindText) && m_editor->setKind(id, KWTaskKindChecklist));
        QCOMPARE(parts(id), u"For Sunday|Flour xEggs"_s);
    }

    void tagsWithTagsThatThereAreAndNewOnes()
    {
        const QString id = aTask("Cake").tagged("errand").savedIn(*m_store);
        const auto tagged = m_editor->addTag(id, u" Kuchen_1 "_s);
        QCOMPARE(task(id).tags, (QStringList{u"errand"_s, u"kuchen_1"_s}));
        QCOMPARE((*KWTag::findTagNamed(u"kuchen_1"_s, m_store->userID(), m_store->context()))->label,
                 u"Kuchen_1"_s);
        QVERIFY(m_editor->addTag(id, u"ERRAND"_s)->isEmpty());
        QVERIFY(isRefused(m_editor->addTag(id, u"two words"_s)) && isRefused(m_editor->addTag(id, u" "_s)));
        QVERIFY(takeBack(tagged));
        QCOMPARE(task(id).tags, QStringList{u"errand"_s});
    }

    void assignsMembersOnly()
    {
        const QString list = m_store->makeList(u"Office"_s);
        saved(*m_store, [&list](ObjectContext &context) {
            KWTeamworkerModel member;
            member.projectID = list;
            member.userServerID = 7;
            context.insert<KWTeamworker>(member);
        });
        const QString id = aTask("Cake").in(list).savedIn(*m_store);
        const auto assigned = m_editor->setAssignee(id, 7);
        QCOMPARE(task(id).assignee, 7);
        QVERIFY(isRefused(m_editor->setAssignee(id, 8)));
        QVERIFY(m_editor->setAssignee(id, KWTaskAssignedToNobody));
        QVERIFY(isRefused(m_editor->setAssignee(aTask("Tea").savedIn(*m_store), 7)));
    }

    void addsSubtasks()
    {
        const QString id = aTask("Cake").savedIn(*m_store);
        QVERIFY(m_editor->addSubtask(id, u"Buy\neggs"_s));
        const auto last = m_editor->addSubtask(id, u"Bake"_s);
        QCOMPARE(joined(m_editor->read(id)->subtasks, &KWTaskModel::title), u"Buy eggs Bake"_s);
        QCOMPARE(m_editor->read(id)->subtasks.first().projectID, task(id).projectID);
        QVERIFY(takeBack(last));
        QCOMPARE(joined(m_editor->read(id)->subtasks, &KWTaskModel::title), u"Buy eggs"_s);
        QVERIFY(isRefused(m_editor->addSubtask(id, u" \n"_s)));
        QVERIFY(m_editor->setKind(id, KWTaskKindNote) && isRefused(m_editor->addSubtask(id, u"Tea"_s)));
    }

    void schedulesWhatWasChosenAlone()
    {
        const QString id = aTask("Cake", "Europe/Berlin").startingAt("2030-05-02 10:00").savedIn(*m_store);
        const TaskSchedule shown = TaskSchedule::ofTask(task(id));
        TaskSchedule chosen = shown;
        chosen.dates.repeatRule = u"FREQ=DAILY;COUNT=3"_s;
        chosen.dates.repeatFrom = CXRecurrenceFromCompletionDate;
        // Meanwhile it is put off elsewhere.
        QVERIFY(m_editor->setDay(id, m_store->clock.today() + std::chrono::days{3}));
        const auto scheduled = m_editor->setSchedule(id, chosen, shown);
        QCOMPARE(task(id).startDate, at("2030-05-04 10:00", "Europe/Berlin"));
        QCOMPARE(task(id).repeatRule, chosen.dates.repeatRule);
        QCOMPARE(task(id).repeatFrom, CXRecurrenceFromCompletionDate);

        TaskSchedule later = chosen;
        later.dates.startDateTime->date += std::chrono::hours{1};
        later.dates.alarmTriggers = {CXAlarmTrigger::onTime()};
        setSaved<KWTask>(*m_store, id, &KWTaskModel::snoozedRemindDate, m_store->clock.now());
        QVERIFY(m_editor->setSchedule(id, later, chosen));
        QVERIFY(!task(id).snoozedRemindDate);
        QCOMPARE(task(id).reminders, QStringList{u"TRIGGER:PT0S"_s});
        QCOMPARE(task(id).remindTime, later.dates.startDateTime->date);
        QVERIFY(takeBack(scheduled));
        QVERIFY(task(id).repeatRule.isEmpty());
    }

    void refusesSchedulesThatCannotBe()
    {
        const QString id = aTask("Cake", "Europe/Berlin").startingAt("2030-05-02 10:00").savedIn(*m_store);
        const TaskSchedule shown = TaskSchedule::ofTask(task(id));
        TaskSchedule early = shown, odd = shown, often = shown, dateless;
        early.dates.endDateTime = shown.dates.startDateTime;
        early.dates.endDateTime->date -= std::chrono::minutes{1};
        odd.dates.repeatRule = u"FREQ=SOMETIMES"_s;
        dateless.dates.repeatRule = u"FREQ=DAILY"_s;
        often.dates.repeatRule = u"FREQ=MINUTELY;INTERVAL=14"_s;
        for (const TaskSchedule &each : {early, odd, often, dateless})
            QVERIFY(isRefused(m_editor->setSchedule(id, each, shown)));
        QCOMPARE(TaskSchedule::ofTask(task(id)), shown);
        often.dates.repeatRule = u"FREQ=MINUTELY;INTERVAL=15"_s;
        QVERIFY(m_editor->setSchedule(id, often, shown));
        QVERIFY(m_editor->setSchedule(id, {}, shown) && !task(id).startDate);
    }
};

ORVANE_TEST(TaskParts_test)
#include "TaskParts_test.moc"
