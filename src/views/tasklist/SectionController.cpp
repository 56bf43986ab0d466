#include "views/tasklist/SectionController.h"

#include "corvexkit/time/CXClock.h"
#include "views/addfield/AddFieldController.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/tasklist/BatchActions.h"
#include "views/tasklist/SectionPreset.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

#include <QMenu>

SectionController::SectionController(const Parts &parts) : m_parts(parts)
{
    const TaskListView &list = m_parts.pane.list();
    connect(&list, &TaskListView::sectionAddRequested, this, &SectionController::add);
    connect(&list, &TaskListView::postponeRequested, this, &SectionController::postpone);
    connect(&list, &TaskListView::sectionMenuAboutToShow, this, &SectionController::fillMenu);
}

const KWTaskCategory *SectionController::sectionOf(const TaskListRow &row) const
{
    const auto &sections = m_parts.service.categories();
    return row.category < sections.size() ? &sections.at(row.category) : nullptr;
}

void SectionController::add(const TaskListRow &row)
{
    const KWTaskCategory *section = sectionOf(row);
    if (!section) return;
    m_parts.addField.setPreset(newTaskContextOf(section->section(), m_parts.addField.contextOfList()),
                               tr("Add a task to “%1”").arg(section->title()));
    m_parts.pane.addField().setFocus(Qt::ShortcutFocusReason);
}

void SectionController::postpone(const TaskListRow &row)
{
    const KWTaskCategory *section = sectionOf(row);
    if (!section) return;
    const Day today = m_parts.clock.today();
    QStringList taskIDs; // a subtask stands with its parent, and may be due later
    for (const KWTaskListItemModel &each : section->models())
        if (!each.isClosed() && each.startDate && m_parts.clock.zone().dayOf(*each.startDate) < today)
            taskIDs.append(each.sid);
    m_parts.actions.setDay(taskIDs, today);
}

void SectionController::fillMenu(QMenu &menu, const TaskListRow &row)
{
    const SectionLook look = m_parts.pane.model().lookOf(row);
    if (look.canAdd) menu.addAction(tr("Add Task"), this, [this, row] { add(row); });
    if (look.canPostpone) menu.addAction(tr("Postpone to Today"), this, [this, row] { postpone(row); });
    QAction *select = menu.addAction(tr("Select All of Section"), &m_parts.pane.list(), [this, row] {
        m_parts.pane.list().selectSection(row.category);
        m_parts.pane.list().setFocus(Qt::OtherFocusReason);
    });
    select->setEnabled(!row.isFolded);
    menu.addSeparator();
    menu.addAction(tr("Fold All Sections"), this, [this] { foldAll(true); });
    menu.addAction(tr("Unfold All Sections"), this, [this] { foldAll(false); });
}

void SectionController::foldAll(bool isFolded)
{
    QStringList names;
    for (const KWTaskCategory &each : m_parts.service.categories())
        if (!each.hidesHeader() && !each.isLoadMore()) names.append(each.name());
    m_parts.service.setSectionsFolded(names, isFolded);
}
