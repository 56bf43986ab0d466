#pragma once

#include "calendar/CalendarPageContent.h"

// Items and pages of a calendar, of November 2026, where the 16th is a Monday.

inline Day november(int day) { return Day{std::chrono::year{2026} / 11 / 1} + std::chrono::days{day - 1}; }

inline CalendarItem timed(const char *title, int day, double from, double to)
{
    const auto at = [day](double hour) {
        return LocalTime{november(day)} + std::chrono::minutes{int(hour * 60)};
    };
    return {.entityID = QString::fromLatin1(title),
            .taskID = QString::fromLatin1(title),
            .title = QString::fromLatin1(title),
            .color = QStringLiteral("#3e8ef7"),
            .start = at(from),
            .end = at(to)};
}

inline CalendarItem allDay(const char *title, int first, int last)
{
    CalendarItem item = timed(title, first, 0, 0);
    item.isAllDay = true;
    item.end = november(last + 1);
    return item;
}

inline CalendarPageContent pageOf(std::vector<CalendarItem> items, CalendarPage::Kind kind, int day = 16)
{
    CalendarPageContent content{.page = CalendarPage::around(november(day), kind, std::chrono::Monday),
                                .today = november(21),
                                .items = std::move(items)};
    content.layOut();
    return content;
}
