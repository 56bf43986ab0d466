#pragma once

#include <QFont>
#include <QList>
#include <QRect>
#include <QString>

class TaskListModel;
struct KWTaskListItemModel;

/// Where the pieces of a task row stand. Rectangles are already mirrored for right-to-left.
struct TaskRowLayout {
    enum class PieceKind { Progress, Tag, ListName, Repeat, Date };
    struct Piece {
        PieceKind kind;
        QString text; ///< empty for the repeat mark
        QRect bounds;
    };

    QRect background;
    QRect checkbox;
    QRect title;
    QRect hairline;
    QList<Piece> pieces;
};

/// The title keeps at least half of the row; pieces that would take more are left out, the name of
/// the list first, then tags, then progress.
TaskRowLayout layOutTaskRow(const QRect &row, Qt::LayoutDirection direction, const TaskListModel &model,
                            const KWTaskListItemModel &task);

/// The checkbox alone, for hit tests.
QRect taskRowCheckbox(const QRect &row, Qt::LayoutDirection direction);
