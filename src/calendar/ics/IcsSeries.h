#pragma once

#include "calendar/ics/IcsEvent.h"

/// The events of a calendar as they are kept, in their order: what belongs together by its UID is made to
/// stand for itself, as IcsCalendar says. Cancelled ones are gone. Any thread.
std::vector<KWCalSubscriptionEventModel> joinSeries(std::vector<IcsEvent> events, const CXTimeZone &inForce);
