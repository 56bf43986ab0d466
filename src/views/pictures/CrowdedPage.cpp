#include "views/pictures/CrowdedPage.h"

#include "views/theme/ListColors.h"

using namespace std::chrono;

namespace {

// With numbers that share no factor neighbours differ in everything.
CalendarItem crowdedItem(Day day, int number)
{
    const char *const titles[] = {"Water the plants",     "Call the workshop", "Sort the photos",
                                  "Plan the week",        "Clean the bicycle", "Read two chapters",
                                  "Prepare the workshop", "Write the notes"};
    const minutes start = 8h + 15min * (number * 7 % 30);
    const minutes length = 30min * (1 + number * 5 % 8);
    const QString id = QStringLiteral("%1-%2").arg(day.time_since_epoch().count()).arg(number);
    const QString title =
        QString::fromLatin1(titles[std::size_t(number) % std::size(titles)]) + u' ' + QString::number(number);
    CalendarItem item{.entityID = id,
                      .taskID = id,
                      .title = title,
                      .color = QString::fromLatin1(listColors[std::size_t(number) % listColors.size()].value),
                      .priority = KWTaskPriorities[std::size_t(number) % KWTaskPriorities.size()],
                      .isAllDay = number % 5 == 4,
                      .repeats = number % 6 == 0,
                      .isClosed = number % 9 == 8,
                      .start = LocalTime{day} + start,
                      .end = LocalTime{day} + start + length};
    if (item.isAllDay) {
        item.start = day;
        item.end = day + days{1};
    }
    return item;
}

} // namespace

CalendarPageContent crowdedPage(CalendarPageContent content, int itemsADay)
{
    for (Day day = content.page.firstDay; day < content.page.endDay(); day += days{1})
        for (int number = 0; number < itemsADay; ++number)
            content.items.push_back(crowdedItem(day, number));
    content.layOut();
    return content;
}
