#pragma once

#include "model/records/KWCalSubscriptionModel.h"

class CXClock;

/// When a subscribed calendar was read, and why not since then, on one line.
QString calendarState(const KWCalSubscriptionModel &calendar, const CXClock &clock);
