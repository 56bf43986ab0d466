#pragma once

#include "corvexkit/time/Instant.h"
#include "model/records/KWConstants.h"

#include <QList>
#include <QString>

#include <optional>
#include <variant>

// What the sections of a list stand for. What a task is given when it is dropped into one follows from it.

/// Rows that have nothing in common but the list; or, with a title, a day that they were made, changed or
/// completed on.
struct KWDefaultCategorySection {
    bool operator==(const KWDefaultCategorySection &) const = default;
};

/// Rows of a day; of several when `isMultiDate`; without a date when there is none.
struct KWDateCategorySection {
    std::optional<Day> date;
    bool isMultiDate = false; ///< `date` and the days after it
    bool isOverdue = false;   ///< `date` and the days before it; `isMultiDate` too

    bool operator==(const KWDateCategorySection &) const = default;
};

struct KWPriorityCategorySection {
    KWTaskPriority priority = KWTaskPriorityNone;

    bool operator==(const KWPriorityCategorySection &) const = default;
};

struct KWProjectCategorySection {
    QString projectID;

    bool operator==(const KWProjectCategorySection &) const = default;
};

struct KWTagCategorySection {
    std::optional<QString> tag; ///< its name; nothing for rows without a tag

    bool operator==(const KWTagCategorySection &) const = default;
};

struct KWAssigneeCategorySection {
    QList<std::int64_t> userServerIDs{}; ///< none for rows that are assigned to nobody
    bool isFormerMember = false;         ///< who has left the list

    bool operator==(const KWAssigneeCategorySection &) const = default;
};

struct KWColumnCategorySection {
    QString column; ///< its id

    bool operator==(const KWColumnCategorySection &) const = default;
};

struct KWCompletedCategorySection {
    bool operator==(const KWCompletedCategorySection &) const = default;
};

struct KWPinnedCategorySection {
    bool operator==(const KWPinnedCategorySection &) const = default;
};

struct KWNoteCategorySection {
    bool operator==(const KWNoteCategorySection &) const = default;
};

struct KWHabitCategorySection {
    QString sectionID; ///< of the day; empty for all habits together

    bool operator==(const KWHabitCategorySection &) const = default;
};

/// Events of subscribed calendars, where the list is not sorted by time.
struct KWCalSubscriptionCategorySection {
    bool operator==(const KWCalSubscriptionCategorySection &) const = default;
};

/// The row that loads more: completed ones, or later events.
struct KWLoadMoreCategorySection {
    bool operator==(const KWLoadMoreCategorySection &) const = default;
};

using KWCategorySection =
    std::variant<KWDefaultCategorySection, KWDateCategorySection, KWPriorityCategorySection,
                 KWProjectCategorySection, KWTagCategorySection, KWAssigneeCategorySection,
                 KWColumnCategorySection, KWCompletedCategorySection, KWPinnedCategorySection,
                 KWNoteCategorySection, KWHabitCategorySection, KWCalSubscriptionCategorySection,
                 KWLoadMoreCategorySection>;
