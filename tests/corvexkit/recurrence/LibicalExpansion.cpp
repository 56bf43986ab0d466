#include "LibicalExpansion.h"

#include <libical/ical.h>

#include <cstdlib>
#include <memory>

using namespace std::chrono;

namespace {

icaltimetype toIcalTime(LocalTime time)
{
    const auto day = floor<days>(time);
    const year_month_day date{day};
    const hh_mm_ss clock{floor<seconds>(time - day)};
    icaltimetype result = icaltime_null_time();
    result.year = int{date.year()};
    result.month = int(unsigned{date.month()});
    result.day = int(unsigned{date.day()});
    result.hour = int(clock.hours().count());
    result.minute = int(clock.minutes().count());
    result.second = int(clock.seconds().count());
    return result;
}

LocalTime toLocalTime(const icaltimetype &time)
{
    const Day day{year{time.year} / time.month / time.day};
    return day + hours{time.hour} + minutes{time.minute} + seconds{time.second};
}

} // namespace

std::optional<std::vector<LocalTime>> libicalOccurrences(const QString &rule, LocalTime start, LocalTime last,
                                                         std::size_t most)
{
    icalrecurrencetype recurrence = icalrecurrencetype_from_string(rule.toLatin1().constData());
    // The iterator uses it, and nothing of libical frees it.
    const std::unique_ptr<char, decltype(&std::free)> calendar{recurrence.rscale, &std::free};
    const std::unique_ptr<icalrecur_iterator, decltype(&icalrecur_iterator_free)> iterator{
        icalrecur_iterator_new(recurrence, toIcalTime(start)), &icalrecur_iterator_free};
    icalrecurrencetype_clear(&recurrence);
    if (!iterator) return {};
    std::vector<LocalTime> times;
    while (times.size() < most) {
        const icaltimetype next = icalrecur_iterator_next(iterator.get());
        if (icaltime_is_null_time(next)) break;
        const LocalTime time = toLocalTime(next);
        if (time > last) break;
        times.push_back(time);
    }
    return times;
}
