#pragma once

#include "calendar/CalendarPage.h"

#include <QLocale>
#include <QRect>

#include <optional>
#include <vector>

/// Which days of a row stand beside each other, and where. Days are counted from the first of the row; places
/// run from left to right, whatever the direction of the text.
class DayColumns {
public:
    enum class Weekends { Shown, Hidden };

    DayColumns() = default;
    /// The days of a week, or a day alone, which is there even on a weekend.
    DayColumns(const CalendarPage &page, Weekends weekends, const QLocale &locale);
    /// Whether such a row has a column for the day, which may be of another page.
    static bool show(Day day, CalendarPage::Kind kind, Weekends weekends, const QLocale &locale);
    /// The day itself, or the next one that is shown.
    static Day nextShown(Day day, CalendarPage::Kind kind, Weekends weekends, const QLocale &locale);

    /// From `left` on, that many pixels.
    void place(int left, int width);

    int count() const { return int(m_days.size()); }
    int dayOf(int column) const { return m_days[std::size_t(column)]; }
    /// Nothing for a day that is not shown.
    std::optional<int> columnOf(int day) const;
    struct Range {
        int first;
        int last;
    };
    /// The columns of the days from `firstDay` to `lastDay`; nothing where none of them is shown.
    std::optional<Range> columnsOf(int firstDay, int lastDay) const;
    int left(int column) const { return m_left + int(qint64(m_width) * column / count()); }
    int right(int column) const { return left(column + 1); } ///< the first pixel behind it
    /// The nearest column.
    int at(int x) const;

private:
    std::vector<int> m_days;
    int m_left = 0;
    int m_width = 0;
};
