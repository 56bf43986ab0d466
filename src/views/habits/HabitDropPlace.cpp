#include "views/habits/HabitDropPlace.h"

#include "views/habits/HabitListModel.h"

namespace {

QString idAt(const HabitSection &section, qsizetype row)
{
    return row >= 0 && row < section.rows.size() ? section.rows.at(row).habit.sid : QString{};
}

} // namespace

std::optional<HabitDropPlace> HabitDropPlace::at(const HabitListModel &model, const QModelIndex &row,
                                                 double share)
{
    if (!row.isValid() || model.shows() == HabitListModel::Shows::Archived) return std::nullopt;
    const HabitSection &section = model.sectionAt(row);
    const int before = model.isSection(row) ? 0 : row.row() + (share < 0.5 ? 0 : 1);
    return HabitDropPlace{section.sectionID, idAt(section, before)};
}

std::optional<HabitDropPlace> HabitDropPlace::byKey(const HabitListModel &model, const QModelIndex &habit,
                                                    KeyMove move)
{
    if (!model.rowAt(habit) || model.shows() == HabitListModel::Shows::Archived) return std::nullopt;
    const HabitSection &section = model.sectionAt(habit);
    const int sectionRow = model.parent(habit).row();
    if (move == KeyMove::Up) {
        if (habit.row() > 0) return HabitDropPlace{section.sectionID, idAt(section, habit.row() - 1)};
        if (sectionRow == 0) return std::nullopt;
        return HabitDropPlace{model.sections().at(sectionRow - 1).sectionID, {}};
    }
    if (habit.row() + 1 < section.rows.size())
        return HabitDropPlace{section.sectionID, idAt(section, habit.row() + 2)};
    if (sectionRow + 1 >= model.sections().size()) return std::nullopt;
    const HabitSection &next = model.sections().at(sectionRow + 1);
    return HabitDropPlace{next.sectionID, idAt(next, 0)};
}
