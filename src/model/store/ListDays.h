#pragma once

#include "corvexkit/time/Instant.h"
#include "model/records/KWListIdentifier.h"

#include <optional>

/// Days one after the other; `end` is the one behind the last.
struct ListDays {
    Day first;
    Day end;

    bool operator==(const ListDays &) const = default;
};

/// Which days a list shows that is made of days: Today, Tomorrow, Next 7 Days, and as many as `calendarDays`
/// from today on of a subscribed calendar. Nothing for any other list.
std::optional<ListDays> daysOfList(const KWListIdentifier &list, Day today, int calendarDays);
