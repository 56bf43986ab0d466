#include "views/taskdetail/DetailActions.h"
#include "views/focus/FocusEstimatePopup.h"

#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWPomoSettings.h"
#include "model/store/TaskPermissions.h"
#include "model/text/DayText.h"
#include "views/datepicker/ScheduleSurroundings.h"
#include "views/taskdetail/ChecklistView.h"
#include "views/taskdetail/DetailFooter.h"
#include "views/taskdetail/DetailHeader.h"
#include "views/taskdetail/TaskDetailView.h"
#include "views/tasklist/BatchActions.h"
#include "views/tasklist/MoveToList.h"
#include "views/wording/DateWording.h"

#include <QMenu>

using namespace Qt::StringLiterals;

DetailActions::DetailActions(TaskDetailView &view, OrvaneKit &kit, BatchActions &common)
    : m_view(view)
    , m_kit(kit)
    , m_common(common)
    , m_occurrences(kit.manager(), common)
    , m_editor(kit.manager())
{
    connectHeader();
    connectFooter();
    connectChecklist();
}

void DetailActions::connectHeader()
{
    DetailHeader &header = m_view.header();
    connect(&header, &DetailHeader::completionToggled, this, [this] { m_common.tick({m_task.sid}); });
    connect(&header, &DetailHeader::dateRequested, this, &DetailActions::pickDate);
    connect(&header, &DetailHeader::priorityChosen, this,
            [this](KWTaskPriority priority) { m_common.setPriority({m_task.sid}, priority); });
    connect(&m_view, &TaskDetailView::parentOpened, this,
            [this] { Q_EMIT taskRequested(QString{m_task.parentId}); });
}

void DetailActions::connectFooter()
{
    DetailFooter &footer = m_view.footer();
    connect(&footer, &DetailFooter::listRequested, this, [this](const QPoint &position) {
        askForListOf({m_task.sid}, m_common, m_kit.manager(), *m_view.window(), position);
    });
    connect(&footer, &DetailFooter::estimateRequested, this, &DetailActions::estimate);
    connect(&footer, &DetailFooter::menuAboutToShow, this, &DetailActions::fillMenu);
    connect(&footer, &DetailFooter::assigneeChosen, this, [this](std::int64_t userServerID) {
        report(m_editor.setAssignee(m_task.sid, userServerID),
               userServerID == KWTaskAssignedToNobody ? tr("Assigned to nobody") : tr("Assigned"));
    });
    connect(&footer, &DetailFooter::tagAdded, this, [this, &footer](const QString &label) {
        const Result<UndoToken> added = m_editor.addTag(m_task.sid, label);
        if (added) footer.clearTagField();
        report(added, tr("Tag added"));
    });
    connect(&footer, &DetailFooter::tagRemoved, this, [this](const QString &name) {
        m_common.setTag({m_task.sid}, name, m_kit.tags().labelOf(name), TaskBatch::Tagging::Remove);
    });
}

void DetailActions::report(const Result<UndoToken> &done, const QString &message)
{
    if (!done) return Q_EMIT failed(done.error().sentence);
    Q_EMIT saved();
    if (done->isEmpty()) return;
    Q_EMIT changed(message, [this, undo = *done] {
        if (const Result<void> undone = undo.undo(m_kit.manager()); !undone)
            Q_EMIT failed(undone.error().sentence);
    });
}

void DetailActions::pickDate(const QPoint &position)
{
    if (m_task.sid.isEmpty()) return;
    const TaskSchedule shown = TaskSchedule::ofTask(m_task);
    auto *picker = new SchedulePicker{shown, scheduleSurroundings(m_kit), m_view.window()};
    connect(picker, &SchedulePicker::kept, this,
            [this, shown, position, id = m_task.sid](const TaskSchedule &chosen) {
                if (!TaskOccurrences::mayBeForThisOnly(chosen, shown))
                    return schedule(id, chosen, shown, OccurrenceScope::All);
                m_occurrences.askScope(
                    {id, shown.dates.startDateTime->date}, position,
                    [=, this](OccurrenceScope scope) { schedule(id, chosen, shown, scope); });
            });
    picker->popUp(position);
}

void DetailActions::schedule(const QString &taskID, const TaskSchedule &chosen, const TaskSchedule &shown,
                             OccurrenceScope scope)
{
    const auto done = TaskOccurrences{m_kit.manager()}.schedule(taskID, scope, chosen, shown);
    const QString message = messageOf(chosen.dates.startDateTime);
    if (!done) return report(done.error(), message);
    report(done->undo, message);
}

QString DetailActions::messageOf(const std::optional<KWDateTime> &date) const
{
    if (!date) return tr("Date removed");
    const Day day = m_kit.clock().zone().dayOf(date->date);
    return tr("Date: %1").arg(DateWording::relativeDay(day, m_kit.clock().today(), QLocale{}));
}

void DetailActions::connectChecklist()
{
    ChecklistView &checklist = m_view.checklist();
    connect(&checklist, &ChecklistView::itemDateRequested, this, &DetailActions::pickItemDate);
    connect(&checklist, &ChecklistView::itemDateCleared, this,
            [this](const QString &itemID) { scheduleItem(itemID, std::nullopt); });
}

void DetailActions::pickItemDate(const QString &itemID, const QPoint &position)
{
    const KWChecklistItem *item = m_kit.context().find<KWChecklistItem>(itemID);
    if (const Result<void> allowed = mayChangeItem(item); !allowed)
        return Q_EMIT failed(allowed.error().sentence);
    TaskSchedule shown;
    if (const auto start = (*item)->startDate)
        shown.dates.startDateTime = KWDateTime::dateTimeWithDate(*start, !(*item)->isAllDay);
    const SchedulePicker::Surroundings surroundings{.today = m_kit.clock().today(),
                                                    .zone = m_kit.clock().zone(),
                                                    .firstWeekday =
                                                        m_kit.account().userSettings().firstWeekday,
                                                    .reminders = {},
                                                    .allDayReminders = {},
                                                    .readRule = {},
                                                    .asksDayAndTimeAlone = true};
    auto *picker = new SchedulePicker{shown, surroundings, m_view.window()};
    connect(picker, &SchedulePicker::kept, this, [this, itemID, shown](const TaskSchedule &chosen) {
        // What was changed elsewhere meanwhile stays where nothing else was chosen.
        if (chosen != shown) scheduleItem(itemID, chosen.dates.startDateTime);
    });
    picker->popUp(position);
}

void DetailActions::scheduleItem(const QString &itemID, const std::optional<KWDateTime> &date)
{
    report(m_editor.setItemDate(itemID, date), messageOf(date));
}

void DetailActions::fillMenu(QMenu &menu)
{
    const auto add = [this, &menu](const QString &text, auto action) {
        connect(menu.addAction(text), &QAction::triggered, this, action);
    };
    const QStringList task{m_task.sid};
    if (m_mayChange) addChanges(menu);
    if (m_task.status == KWTaskStatusOpen && !m_task.isTrashed && m_task.kind != KWTaskKindNote)
        addFocus(menu);
    add(tr("Copy Link"), [this, task] { m_common.copyLinks(task); });
    menu.addSeparator();
    if (m_mayChange && m_task.status == KWTaskStatusOpen)
        add(tr("Abandon"), [this, task] { m_common.abandon(task); });
    if (m_mayChange && !m_task.isTrashed) add(tr("Delete"), [this, task] { m_common.remove(task); });
    menu.addSeparator();
    addFacts(menu);
}

void DetailActions::addChanges(QMenu &menu)
{
    addKinds(menu);
    menu.addSeparator();
    if (OccurrenceActions::haveSome(m_task)) m_occurrences.addTo(menu, {m_task.sid, *m_task.startDate});
    if (m_task.isTrashed) return;
    const auto add = [this, &menu](const QString &text, auto action) {
        connect(menu.addAction(text), &QAction::triggered, this, action);
    };
    const bool isPinned = m_task.pinnedDate.has_value();
    const auto pinning = isPinned ? TaskBatch::Pinning::Unpin : TaskBatch::Pinning::Pin;
    add(isPinned ? tr("Unpin") : tr("Pin"),
        [this, task = QStringList{m_task.sid}, pinning] { m_common.setPinned(task, pinning); });
    add(tr("Attach Files…"), &DetailActions::filesRequested);
    add(tr("Insert Summary…"), &DetailActions::summaryRequested);
    add(tr("Duplicate"), [this] { duplicate(); });
}

void DetailActions::addKinds(QMenu &menu)
{
    const auto add = [this, &menu](const QString &text, KWTaskKind kind) {
        QAction *action = menu.addAction(text);
        action->setCheckable(true);
        action->setChecked(m_task.kind == kind);
        connect(action, &QAction::triggered, this, [this, kind, text] {
            m_view.commitEdits();
            report(m_editor.setKind(m_task.sid, kind), tr("Kind: %1").arg(text));
        });
    };
    add(tr("Text"), KWTaskKindText);
    add(tr("Checklist"), KWTaskKindChecklist);
    add(tr("Note"), KWTaskKindNote);
}

void DetailActions::addFocus(QMenu &menu)
{
    if (!KWPomoSettings::isFocusEnabled(m_kit.account().currentUserID(), m_kit.context())) return;
    QMenu *starts = menu.addMenu(tr("Start Focus"));
    for (const auto &[text, mode] :
         {std::pair{tr("Pomo"), KWFocusTypePomo}, {tr("Stopwatch"), KWFocusTypeStopwatch}})
        connect(starts->addAction(text), &QAction::triggered, this,
                [this, mode = mode, id = m_task.sid] { Q_EMIT focusRequested(id, mode); });
    if (!m_mayChange) return;
    connect(menu.addAction(tr("Estimate…")), &QAction::triggered, this, [this] {
        const QWidget &footer = m_view.footer();
        estimate(footer.mapToGlobal(QPoint{}));
    });
}

void DetailActions::estimate(const QPoint &position)
{
    auto *popup = new FocusEstimatePopup{m_focus, m_view.window()};
    connect(popup, &FocusEstimatePopup::estimated, this,
            [this, id = m_task.sid](int pomos, std::chrono::seconds duration) {
                report(m_editor.setEstimate(id, pomos, duration), tr("Estimate changed"));
            });
    popup->popUp(position - QPoint{0, popup->sizeHint().height()});
}

void DetailActions::addFacts(QMenu &menu)
{
    const auto add = [this, &menu](const QString &words, std::optional<Instant> instant) {
        if (!instant) return;
        const LocalTime time = m_kit.clock().zone().toLocal(*instant);
        const QString when =
            DayText::dayMonthAndYear(std::chrono::floor<std::chrono::days>(time), QLocale{}) + u", "_s +
            DateWording::timeOfDay(time, QLocale{});
        menu.addAction(words.arg(when))->setEnabled(false);
    };
    add(tr("Created: %1"), m_task.createdTime);
    add(tr("Modified: %1"), m_task.modifiedTime);
    add(tr("Closed: %1"), m_task.completionDate);
}

void DetailActions::duplicate()
{
    m_view.commitEdits();
    m_kit.center().post(KWDetailViewDidSelectDuplicateNotification, m_task.sid);
    m_common.duplicate({m_task.sid});
}
