#pragma once

#include "focus/FocusPageContent.h"
#include "views/focus/FocusFace.h"

#include <QLocale>

#include <chrono>

/// Focus in words. Main thread.
namespace FocusWording {

/// "15:42", from an hour on "1:05:42".
QString clock(std::int64_t seconds);
/// "2h 35m", "25m", "0m"; less than a minute counts as none.
QString length(std::chrono::seconds length);
/// The same for screen readers: "2 hours 35 minutes".
QString spokenLength(std::chrono::seconds length);
/// "1 Pomo", "5 Pomos".
QString pomos(int count);

/// "1h 20m of 2h, 3 of 4 Pomos"; empty when there is neither focus nor an estimate.
QString ofTask(const FocusOfTask &focus);
/// "25m focused today, 3h in all"; empty for none at all.
QString ofHabit(const FocusOfHabit &focus);

QString command(FocusCommand command);
/// What an unnamed target is called.
QString nothingInParticular();

} // namespace FocusWording
