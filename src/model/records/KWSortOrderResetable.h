#pragma once

#include "model/records/KWConstants.h"
#include "model/records/KWSynchronizableFields.h"

#include <QList>

#include <algorithm>
#include <concepts>

/// A record that can be put in order by hand.
template <class Record>
concept KWSortOrderResetable = requires(Record record, std::int64_t order)
{
    record.set(&KWSynchronizableFields::sortOrder, order);
    {
        record.synchronizable().sortOrder
        } -> std::convertible_to<std::int64_t>;
};

/// Sets places of single records.
struct KWEntitySortOrder {
    /// Gives the record the place `order`, kept inside the bounds.
    template <KWSortOrderResetable Record>
    static void update(Record &record, std::int64_t order)
    {
        record.set(&KWSynchronizableFields::sortOrder, std::clamp(order, KWSortOrderMin, KWSortOrderMax));
    }
};

/// Renumbers the run, whose records stand in the order wanted, when two of their places collide or are
/// out of order: a step apart, from the first one's place on. Answers whether it had to.
template <KWSortOrderResetable Record>
bool resetSortOrderIfNeeded(const QList<Record *> &run)
{
    const auto collide = [](const Record *one, const Record *next) {
        return one->synchronizable().sortOrder >= next->synchronizable().sortOrder;
    };
    if (std::ranges::adjacent_find(run, collide) == run.end()) return false;
    const std::int64_t length = std::int64_t(run.size() - 1) * KWSortOrderStep;
    std::int64_t order =
        std::clamp(run.first()->synchronizable().sortOrder, KWSortOrderMin, KWSortOrderMax - length);
    for (Record *each : run) {
        KWEntitySortOrder::update(*each, order);
        order += KWSortOrderStep;
    }
    return true;
}
