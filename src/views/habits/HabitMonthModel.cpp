#include "views/habits/HabitMonthModel.h"

#include "views/habits/HabitPhrases.h"

void HabitMonthModel::setMonth(const HabitDetailContent &content, std::chrono::weekday firstWeekday)
{
    const QList<HabitDay> days = content.monthDays();
    const bool isSameMonth =
        !m_days.isEmpty() && days.first().day == m_days.first().day && firstWeekday == m_firstWeekday;
    if (!isSameMonth) beginResetModel();
    m_habit = content.habit;
    m_days = days;
    m_today = content.today;
    m_firstWeekday = firstWeekday;
    m_before = int((std::chrono::weekday{content.month} - firstWeekday).count());
    if (isSameMonth)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    else
        endResetModel();
}

const HabitDay *HabitMonthModel::dayAt(const QModelIndex &index) const
{
    const int number = index.isValid() ? index.row() * 7 + index.column() - m_before : -1;
    return number < 0 || number >= m_days.size() ? nullptr : &m_days.at(number);
}

QModelIndex HabitMonthModel::indexOf(Day day) const
{
    if (m_days.isEmpty() || day < m_days.first().day || day > m_days.last().day) return {};
    const int number = int((day - m_days.first().day).count()) + m_before;
    return index(number / 7, number % 7);
}

int HabitMonthModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_before + m_days.size() + 6) / 7;
}

QVariant HabitMonthModel::data(const QModelIndex &index, int role) const
{
    const HabitDay *day = dayAt(index);
    if (!day) return {};
    const QLocale locale;
    if (role == Qt::DisplayRole)
        return locale.toString(unsigned(std::chrono::year_month_day{day->day}.day()));
    if (role == Qt::AccessibleTextRole || role == Qt::ToolTipRole)
        return HabitPhrases::spokenDay(*day, m_habit, locale);
    return {};
}

QVariant HabitMonthModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) return {};
    if (role == TodayRole) return false;
    const int weekday = int((m_firstWeekday + std::chrono::days{section}).iso_encoding());
    if (role == Qt::DisplayRole) return QLocale{}.standaloneDayName(weekday, QLocale::NarrowFormat);
    if (role == Qt::AccessibleTextRole) return QLocale{}.standaloneDayName(weekday, QLocale::LongFormat);
    return {};
}

Qt::ItemFlags HabitMonthModel::flags(const QModelIndex &index) const
{
    return dayAt(index) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                        : Qt::ItemFlags{Qt::NoItemFlags};
}
