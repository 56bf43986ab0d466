#pragma once

#include "model/records/KWConstants.h"
#include "model/records/KWSynchronizableFields.h"

#include <QList>

#include <algorithm>
#include <concepts>

class KWChecklistItem;
class KWColumn;
class KWHabit;
class KWHabitSection;
class KWProjectPinnedSortOrder;
class KWTask;
class KWTaskDueDateSortOrder;
class KWTaskPinnedSortOrder;
class KWTaskPrioritySortOrder;
class KWTaskProjectSortOrder;
class KWTaskTagSortOrder;
struct KWHabitSectionModel;

template <class Record, class... Kinds>
concept OneOf = (std::same_as<Record, Kinds> || ...);

/// A record, or a value twin, whose kind is put in order by hand.
template <class Record>
concept KWSortOrderResetable =
    OneOf<Record, KWTask, KWChecklistItem, KWColumn, KWHabit, KWHabitSection, KWHabitSectionModel,
          KWProjectPinnedSortOrder, KWTaskDueDateSortOrder, KWTaskPrioritySortOrder, KWTaskProjectSortOrder,
          KWTaskTagSortOrder, KWTaskPinnedSortOrder>;

/// Places of single records.
struct KWEntitySortOrder {
    template <KWSortOrderResetable Record>
    static std::int64_t of(const Record &record)
    {
        if constexpr (std::derived_from<Record, KWSynchronizableFields>)
            return record.sortOrder;
        else
            return record.synchronizable().sortOrder;
    }

    /// Gives the record the place `order`, kept inside the bounds.
    template <KWSortOrderResetable Record>
    static void update(Record &record, std::int64_t order)
    {
        const std::int64_t place = std::clamp(order, KWSortOrderMin, KWSortOrderMax);
        if constexpr (std::derived_from<Record, KWSynchronizableFields>)
            record.sortOrder = place;
        else
            record.set(&KWSynchronizableFields::sortOrder, place);
    }
};

/// Renumbers the run, whose records stand in the order wanted, when two of their places collide or are
/// out of order: a step apart, from the first one's place on. Answers whether it had to.
template <KWSortOrderResetable Record>
bool resetSortOrderIfNeeded(const QList<Record *> &run)
{
    const auto collide = [](const Record *one, const Record *next) {
        return KWEntitySortOrder::of(*one) >= KWEntitySortOrder::of(*next);
    };
    if (std::ranges::adjacent_find(run, collide) == run.end()) return false;
    const std::int64_t length = std::int64_t(run.size() - 1) * KWSortOrderStep;
    std::int64_t order =
        std::clamp(KWEntitySortOrder::of(*run.first()), KWSortOrderMin, KWSortOrderMax - length);
    for (Record *each : run) {
        KWEntitySortOrder::update(*each, order);
        order += KWSortOrderStep;
    }
    return true;
}
