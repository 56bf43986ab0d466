#pragma once

#include "views/tasklist/DropTarget.h"

#include <QRect>

class QPainter;

/// Paints where dragged tasks would go: a line between two rows, or a frame around one. `row` is the whole
/// row; where the drop would be refused, the mark is faint.
namespace DropMark {

enum class Answer { Taken, Refused };
void paint(QPainter &painter, const DropTarget &target, Answer answer, const QRect &row,
           Qt::LayoutDirection direction);

} // namespace DropMark
