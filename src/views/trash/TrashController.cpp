#include "views/trash/TrashController.h"

#include "model/records/KWSmartProject.h"
#include "model/text/DisplayTitle.h"
#include "views/alerts/Alert.h"
#include "views/tasklist/PageHeader.h"
#include "views/tasklist/TaskListPane.h"

#include <QMenu>

#include <algorithm>

TrashController::TrashController(const Parts &parts) : m_parts(parts), m_trash(parts.manager, parts.account)
{
    connect(&m_parts.pane.header(), &PageHeader::actionTriggered, this, &TrashController::empty);
}

bool TrashController::isShown() const
{
    return m_parts.tasks.list().entityID == KWSmartProject::trash().identifier();
}

void TrashController::showOffer()
{
    const bool hasTasks = isShown() && !m_parts.tasks.rows().isEmpty();
    m_parts.pane.header().setAction(hasTasks ? tr("Empty Trash…") : QString{});
}

void TrashController::fillMenu(QMenu &menu, const QStringList &taskIDs)
{
    connect(menu.addAction(tr("Restore")), &QAction::triggered, this, [this, taskIDs] { restore(taskIDs); });
    connect(menu.addAction(tr("Delete Forever…")), &QAction::triggered, this,
            [this, taskIDs] { deleteForever(taskIDs); });
}

void TrashController::restore(const QStringList &taskIDs)
{
    const Result<UndoToken> done = m_trash.restore(taskIDs);
    if (!done) return Q_EMIT failed(done.error().sentence);
    Q_EMIT restored(tr("Restored"), [this, token = *done] { report(token.undo(m_parts.manager)); });
}

void TrashController::deleteForever(const QStringList &taskIDs)
{
    const auto &rows = m_parts.tasks.rows();
    const auto row = std::ranges::find(rows, taskIDs.value(0), &KWTaskListItemModel::sid);
    if (row == rows.end()) return;
    const bool isOne = taskIDs.size() == 1;
    const int answer =
        Alert::run({.message = isOne ? tr("Delete “%1” forever?").arg(displayTitle(row->title))
                                     : tr("Delete %1 tasks forever?").arg(taskIDs.size()),
                    .text = isOne ? tr("It is gone for good, with its subtasks, items and attachments.")
                                  : tr("They are gone for good, with their subtasks, items and attachments."),
                    .buttons = {tr("Delete Forever"), tr("Cancel")},
                    .defaultButton = 1},
                   m_parts.pane.window());
    if (answer == 0) report(m_trash.deleteForever(taskIDs));
}

void TrashController::empty()
{
    const int answer = Alert::run({.message = tr("Empty the trash?"),
                                   .text = tr("Everything in it is gone for good then."),
                                   .buttons = {tr("Empty Trash"), tr("Cancel")},
                                   .defaultButton = 1},
                                  m_parts.pane.window());
    if (answer == 0) report(m_trash.empty());
}

void TrashController::report(const Result<void> &done)
{
    if (!done) Q_EMIT failed(done.error().sentence);
}
