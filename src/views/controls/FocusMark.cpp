#include "views/controls/FocusMark.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace {

// Rows are painted with what their window says of it.
void show(QAbstractItemView &view, bool isShown)
{
    QWidget &window = *view.window();
    if (window.testAttribute(Qt::WA_KeyboardFocusChange) == isShown) return;
    window.setAttribute(Qt::WA_KeyboardFocusChange, isShown);
    view.viewport()->update();
}

} // namespace

void FocusMark::keyPressed(QAbstractItemView &view, const QKeyEvent &key)
{
    const bool isModifier = key.key() >= Qt::Key_Shift && key.key() <= Qt::Key_Alt;
    if (!isModifier) show(view, true);
}

void FocusMark::mousePressed(QAbstractItemView &view) { show(view, false); }
