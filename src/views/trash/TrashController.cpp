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

void TrashController::fillMenu(QMenu &menu, const QString &taskID)
{
    connect(menu.addAction(tr("Restore")), &QAction::triggered, this, [this, taskID] { restore(taskID); });
    connect(menu.addAction(tr("Delete Forever…")), &QAction::triggered, this,
            [this, taskID] { deleteForever(taskID); });
}

void TrashController::restore(const QString &taskID)
{
    const Result<UndoToken> done = m_trash.restore({taskID});
    if (!done) return Q_EMIT failed(done.error().sentence);
    Q_EMIT restored(tr("Restored"), [this, token = *done] { report(token.undo(m_parts.manager)); });
}

void TrashController::deleteForever(const QString &taskID)
{
    const auto &rows = m_parts.tasks.rows();
    const auto row = std::ranges::find(rows, taskID, &KWTaskListItemModel::sid);
    if (row == rows.end()) return;
    const int answer =
        Alert::run({.message = tr("Delete “%1” forever?").arg(displayTitle(row->title)),
                    .text = tr("It is gone for good, with its subtasks, items and attachments."),
                    .buttons = {tr("Delete Forever"), tr("Cancel")},
                    .defaultButton = 1},
                   m_parts.pane.window());
    if (answer == 0) report(m_trash.deleteForever({taskID}));
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
