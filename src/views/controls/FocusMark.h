#pragma once

class QAbstractItemView;
class QKeyEvent;

/// The mark of focus on a row: it shows from a key on, and not while the mouse is used.
namespace FocusMark {

/// To be told of every key the view gets; one that only modifies others does not count.
void keyPressed(QAbstractItemView &view, const QKeyEvent &key);
void mousePressed(QAbstractItemView &view);

} // namespace FocusMark
