#pragma once

#include "lists/SidebarDrop.h"

#include <QRect>
#include <QStringList>

class QMimeData;
class QModelIndex;
class ProjectListTreeModel;

/// A row of the sidebar on its way by drag and drop.
namespace SidebarMimeData {

inline const QString type = QStringLiteral("application/x-orvane-sidebar-row");

/// The row, for others to take. The caller owns it.
QMimeData *writeItems(const KWProjectListNode &node);
/// The row that is carried; null when the data holds none, or that row is gone.
KWProjectListNode *nodeIn(const QMimeData &data, const ProjectListTreeModel &model);

} // namespace SidebarMimeData

/// Where what is dragged over the sidebar would be dropped.
struct SidebarDropTarget {
    QRect mark;                                ///< of the viewport: a line between rows, or the row
    KWProjectListNode *node = nullptr;         ///< the row that is dropped on; none between rows
    std::optional<SidebarDrop::Place> place{}; ///< of a row of the sidebar

    /// Nothing where it may not be dropped. `row` is where the row `index` under the mouse is painted.
    static std::optional<SidebarDropTarget> at(const QPoint &position, const QModelIndex &index,
                                               const QRect &row, bool isExpanded, const QMimeData &data,
                                               const ProjectListTreeModel &model);
};
