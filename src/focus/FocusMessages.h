#pragma once

#include "focus/FocusPorts.h"

/// What the engine of Pomos says and asks.
namespace FocusMessages {

// What is pressed on a message.
inline const QString relax = QStringLiteral("POMO_RELAX");
inline const QString start = QStringLiteral("POMO_START");
inline const QString exit = QStringLiteral("Exit");

/// Whether the next phase begins by itself: then there is nothing to press.
enum class Next { ByItself, WhenAsked };
FocusMessage focusEnd(Next next, const QString &subtitle);
FocusMessage breakEnd(Next next, const QString &subtitle);

/// The buttons are "it does" and "it does not".
FocusQuestion belonging(const QString &title);
/// The buttons are "give up" and "go on".
FocusQuestion abandonment();
/// What is to become of a Pomo of so many minutes that the program took with it: "keep" and "drop".
FocusQuestion leftPomo(std::chrono::minutes focused);

} // namespace FocusMessages
