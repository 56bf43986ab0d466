#pragma once

#include <QString>

/// Whether the windows may go: no text would be lost with them, or the person gives it up after being shown
/// it. `goOn` is the button that does so.
bool mayLoseUnsavedTexts(const QString &goOn);
