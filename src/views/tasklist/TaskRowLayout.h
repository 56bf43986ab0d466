#pragma once

#include <QFont>
#include <QList>
#include <QRect>
#include <QString>

class TaskListModel;
struct TaskListRow;

/// Where the pieces of a task row stand. Rectangles are already mirrored for right-to-left.
struct TaskRowLayout {
    enum class PieceKind { Pin, Progress, Tag, Attachment, Focus, ListName, Repeat, TaskName, Habit, Date };
    struct Piece {
        PieceKind kind;
        QString text; ///< empty for a mark
        QRect bounds;
    };

    QRect background;
    QRect triangle; ///< empty for a task with nothing below it
    QRect checkbox;
    QRect title;
    QRect hairline;
    QList<Piece> pieces;
};

/// A task stands further in for each level that it is below others. The title keeps at least half of the
/// row; pieces that would take more are left out, the name of the list first, then tags, then marks. An item
/// of a checklist has a smaller checkbox, the name of its task and its date; an event has the mark of its
/// calendar in place of the checkbox; a habit has how far it is.
TaskRowLayout layOutTaskRow(const QRect &bounds, Qt::LayoutDirection direction, const TaskListModel &model,
                            const TaskListRow &row);

/// The checkbox alone, and the triangle, for presses.
QRect taskRowCheckbox(const QRect &bounds, Qt::LayoutDirection direction, int depth = 0);
QRect taskRowTriangle(const QRect &bounds, Qt::LayoutDirection direction, int depth);
