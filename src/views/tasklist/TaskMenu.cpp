#include "views/tasklist/TaskMenu.h"

#include "lists/KWProjectListPresenter.h"
#include "model/records/KWTask.h"
#include "model/store/FindAll.h"
#include "model/store/KWCoreDataManager.h"
#include "views/controls/ChoicePopup.h"
#include "views/menu/MainMenu.h"
#include "views/tasklist/BatchActions.h"
#include "views/tasklist/MoveToList.h"

#include <QListView>
#include <QMenu>

#include <algorithm>

namespace {

using enum MenuCommand;

} // namespace

QList<KWTaskModel> TaskMenu::read(const QStringList &taskIDs) const
{
    QList<KWTaskModel> tasks;
    for (const KWTask *each : findAll<KWTask>(taskIDs, m_parts.manager.MR_defaultContext()))
        tasks.append(each->model());
    return tasks;
}

QPoint TaskMenu::place() const
{
    const QRect row = m_parts.list.visualRect(m_parts.list.currentIndex());
    return m_parts.list.viewport()->mapToGlobal(QPoint{row.center().x(), row.bottom()});
}

void TaskMenu::fill(QMenu &menu, const QStringList &ids)
{
    QStringList taskIDs;
    for (const KWTaskModel &each : read(ids))
        taskIDs.append(each.sid);
    const auto addKnown = [this](QMenu &to, std::initializer_list<MenuCommand> commands) {
        for (const MenuCommand each : commands)
            to.addAction(&m_parts.mainMenu.action(each));
    };
    addKnown(menu, {CompleteTask});
    if (!taskIDs.isEmpty())
        menu.addAction(tr("Abandon"), &m_parts.actions,
                       [this, taskIDs] { m_parts.actions.abandon(taskIDs); });
    menu.addSeparator();
    addKnown(*menu.addMenu(tr("Date")), {SetToday, SetTomorrow, SetNextWeek, SetDate, ClearDate});
    addKnown(*menu.addMenu(tr("Priority")), {PriorityHigh, PriorityMedium, PriorityLow, PriorityNone});
    if (!taskIDs.isEmpty()) {
        addOccurrence(menu, taskIDs);
        addPlaces(menu, taskIDs);
        addPinning(menu, taskIDs);
        if (taskIDs.size() == 1)
            addKnown(*menu.addMenu(tr("Start Focus")), {StartPomoOnTask, StartStopwatchOnTask});
        menu.addSeparator();
        addCopies(menu, taskIDs);
    }
    menu.addAction(tr("Copy Title"), &m_parts.actions, [this, ids] { m_parts.actions.copyTitles(ids); });
    menu.addSeparator();
    menu.addAction(tr("Delete"), &m_parts.actions, [this, ids] { m_parts.actions.remove(ids); });
}

void TaskMenu::fillOfOccurrence(QMenu &menu, const TaskOccurrence &occurrence)
{
    menu.addAction(tr("Complete"), this,
                   [this, occurrence] { m_occurrences.close(occurrence, KWTaskStatusCompleted); });
    menu.addAction(tr("Abandon"), this,
                   [this, occurrence] { m_occurrences.close(occurrence, KWTaskStatusAbandoned); });
    menu.addSeparator();
    m_occurrences.addTo(menu, occurrence);
}

void TaskMenu::addOccurrence(QMenu &menu, const QStringList &taskIDs)
{
    const QList<KWTaskModel> tasks = read(taskIDs);
    if (tasks.size() == 1 && OccurrenceActions::haveSome(tasks.first()))
        m_occurrences.addTo(menu, {tasks.first().sid, *tasks.first().startDate});
}

void TaskMenu::addPlaces(QMenu &menu, const QStringList &taskIDs)
{
    if (const auto &contents = m_parts.sidebar.contents(); contents && !contents->tags.isEmpty())
        menu.addAction(tr("Tags…"), this, [this, taskIDs] { chooseTag(taskIDs); });
    menu.addAction(tr("Move to List…"), this, [this, taskIDs] { chooseList(taskIDs); });
}

void TaskMenu::addPinning(QMenu &menu, const QStringList &taskIDs)
{
    const bool allArePinned = std::ranges::all_of(
        read(taskIDs), [](const KWTaskModel &each) { return each.pinnedDate.has_value(); });
    const auto pinning = allArePinned ? TaskBatch::Pinning::Unpin : TaskBatch::Pinning::Pin;
    menu.addAction(allArePinned ? tr("Unpin") : tr("Pin"), &m_parts.actions,
                   [this, taskIDs, pinning] { m_parts.actions.setPinned(taskIDs, pinning); });
}

void TaskMenu::addCopies(QMenu &menu, const QStringList &taskIDs)
{
    BatchActions &actions = m_parts.actions;
    menu.addAction(tr("Duplicate"), &actions, [&actions, taskIDs] { actions.duplicate(taskIDs); });
    if (taskIDs.size() > 1)
        menu.addAction(tr("Merge %1 Tasks").arg(taskIDs.size()), &actions,
                       [&actions, taskIDs] { actions.merge(taskIDs); });
    const bool allAreNotes = std::ranges::all_of(
        read(taskIDs), [](const KWTaskModel &each) { return each.kind == KWTaskKindNote; });
    menu.addAction(allAreNotes ? tr("Convert to Task") : tr("Convert to Note"), &actions,
                   [&actions, taskIDs, kind = allAreNotes ? KWTaskKindText : KWTaskKindNote] {
                       actions.convert(taskIDs, kind);
                   });
    menu.addAction(tr("Copy Link"), &actions, [&actions, taskIDs] { actions.copyLinks(taskIDs); });
}

void TaskMenu::chooseList(const QStringList &taskIDs)
{
    askForListOf(taskIDs, m_parts.actions, m_parts.manager, *m_parts.list.window(), place());
}

void TaskMenu::chooseTag(const QStringList &taskIDs)
{
    const auto &contents = m_parts.sidebar.contents();
    if (!contents) return;
    const QList<KWTaskModel> tasks = read(taskIDs);
    QList<ChoicePopup::Choice> tags;
    for (const KWTagModel &each : contents->tags)
        tags.append(
            {each.name, each.label, each.color, std::ranges::all_of(tasks, [&each](const KWTaskModel &task) {
                 return task.tags.contains(each.name);
             })});
    auto *popup = new ChoicePopup{tr("Add or remove a tag"), tags, m_parts.list.window()};
    connect(popup, &ChoicePopup::chosen, this, [this, taskIDs, tags](const QString &name) {
        const auto tag = std::ranges::find(tags, name, &ChoicePopup::Choice::id);
        m_parts.actions.setTag(taskIDs, name, tag->title,
                               tag->isChecked ? TaskBatch::Tagging::Remove : TaskBatch::Tagging::Add);
    });
    popup->popUp(place());
}
