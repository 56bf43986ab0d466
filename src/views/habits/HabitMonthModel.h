#pragma once

#include "habits/HabitDetailContent.h"

#include <QAbstractTableModel>

#include <optional>

/// The days of a month of a habit as a table of weeks. Main thread only.
class HabitMonthModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Role { TodayRole = Qt::UserRole };

    using QAbstractTableModel::QAbstractTableModel;

    void setMonth(const HabitDetailContent &content, std::chrono::weekday firstWeekday);

    const KWHabitModel &habit() const { return m_habit; }
    Day today() const { return m_today; }
    /// None before the first day of the month and after the last.
    const HabitDay *dayAt(const QModelIndex &index) const;
    QModelIndex indexOf(Day day) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : 7; }
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    KWHabitModel m_habit;
    QList<HabitDay> m_days;
    Day m_today{};
    std::chrono::weekday m_firstWeekday = std::chrono::Monday;
    int m_before = 0; // empty cells before the first day
};
