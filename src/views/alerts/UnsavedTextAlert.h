#pragma once

#include <QStringList>

class QWidget;

/// Whether the windows may go: no text would be lost with them, or the person gives it up after being shown
/// it. `goOn` is the button that does so.
bool mayLoseUnsavedTexts(const QString &goOn);
/// The same for the texts of one window.
bool mayLoseTexts(const QStringList &texts, const QString &goOn, QWidget *window);
