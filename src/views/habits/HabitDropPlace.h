#pragma once

#include <QString>

#include <optional>

class HabitListModel;
class QModelIndex;

/// Where a habit of the list goes that is dragged over its rows or moved by key.
struct HabitDropPlace {
    QString sectionID;
    QString nextHabitID; ///< empty: behind all of the section

    bool operator==(const HabitDropPlace &) const = default;

    /// For a pointer over a row, at `share` of its height from 0 to 1: before or behind a habit, or at the
    /// top of a section. Nothing where the list is not in the person's order.
    static std::optional<HabitDropPlace> at(const HabitListModel &model, const QModelIndex &row,
                                            double share);

    enum class KeyMove { Up, Down };
    /// Past the habit above or below, from the end of a section into the next one; nothing at the ends.
    static std::optional<HabitDropPlace> byKey(const HabitListModel &model, const QModelIndex &habit,
                                               KeyMove move);
};
