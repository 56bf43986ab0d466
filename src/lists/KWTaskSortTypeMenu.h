#pragma once

#include "model/records/KWConstants.h"

#include <QList>
#include <QString>

#include <optional>

/// Of which sort types the shown list has positions that were set by hand, see KWTaskCategory.
struct ManualOrders {
    bool hasDuedateSortOrder = false;
    bool hasPrioritySortOrder = false;
    bool hasProjectSortOrder = false;
    bool hasTagSortOrder = false;

    bool operator==(const ManualOrders &) const = default;
};

/// What the sort menu of a list offers. The view that shows it tells what kind of list it is.
struct KWTaskSortTypeMenu {
    // A plain list…
    bool isNormalProject = false;
    bool isNoteKind = false;
    bool isSharedProject = false;
    // …a folder…
    bool isGroup = false;
    bool isAllTaskKindInGroup = false;
    bool isAllNoteKindInGroup = false;
    // …or anything else: a smart list, a tag, a filter.
    bool isTag = false;
    bool isParentTag = false;
    bool isNoteKindFilter = false;

    ManualOrders manualOrders;
    KWTaskSortType selectedType = KWTaskSortTypeCustom;

    /// In the order of the menu.
    QList<KWTaskSortType> sortTypes() const;
    /// The sort type whose positions, set by hand, can be given up; nothing while there are none. Of several
    /// the first: date, priority, list, tag.
    std::optional<KWTaskSortType> resetType() const;
    /// The entry that does so.
    std::optional<QString> resetTitle() const;

    /// Empty for a type that no menu offers.
    static QString titleOf(KWTaskSortType type);

    bool operator==(const KWTaskSortTypeMenu &) const = default;
};
