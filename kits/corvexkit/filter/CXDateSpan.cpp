#include "corvexkit/filter/CXDateSpan.h"

namespace {

Day beginOfWeek(const CXSmartFilterFrame &frame)
{
    return frame.today - (std::chrono::weekday{frame.today} - frame.firstWeekday);
}

} // namespace

CXDayRange CXDateSpan::days(const CXSmartFilterFrame &frame) const
{
    using std::chrono::days;
    const auto stretch = [](Day from, int length) { return CXDayRange{from, from + days{length - 1}}; };
    switch (kind) {
    case Kind::Today:
        return stretch(frame.today, 1);
    case Kind::Tomorrow:
        return stretch(frame.today + days{1}, 1);
    case Kind::ThisWeek:
        return stretch(beginOfWeek(frame), 7);
    case Kind::Next7Days:
        return stretch(frame.today, 7);
    case Kind::Relative:
        return {frame.today + days{first}, frame.today + days{last}};
    case Kind::Fixed:
        return range;
    case Kind::None:
    case Kind::Any:
    case Kind::Overdue:
    case Kind::Repeats:
        break;
    }
    return {};
}
