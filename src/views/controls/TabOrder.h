#pragma once

#include <QWidgetList>

/// The controls inside that Tab reaches, in the order of the layouts they stand in: the order of the eye.
QWidgetList controlsInOrder(const QWidget &inside);

/// Makes Tab go through these one after the other.
void setTabOrderOf(const QWidgetList &controls);

/// Moves the keyboard within a window to the next or previous control that takes Tab. A pane that passes the
/// keyboard on to one of its controls is no stop of its own, as it is for Qt: on the way to that one all
/// that stand before it would be left out.
bool moveFocusInTabOrder(QWidget &window, bool isForward);
