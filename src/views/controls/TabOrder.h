#pragma once

#include <QWidgetList>

/// The controls inside that Tab reaches, in the order of the layouts they stand in: the order of the eye.
QWidgetList controlsInOrder(const QWidget &inside);

/// Makes Tab go through these one after the other.
void setTabOrderOf(const QWidgetList &controls);
