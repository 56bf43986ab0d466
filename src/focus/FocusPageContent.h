#pragma once

#include "focus/FocusStatistics.h"
#include "focus/FocusTarget.h"
#include "model/records/KWConstants.h"

#include <QStringList>

#include <array>
#include <optional>

/// What a part of a session was spent on, as it is called now; as it was called then when it is gone.
struct FocusSubject {
    FocusTarget target{};
    QString title{};      ///< empty for nothing in particular
    QString listName{};   ///< in the language of the interface; empty for none
    QString color{};      ///< "#rrggbb" of the list or habit; empty for none
    QStringList tags{};   ///< their labels
    bool isThere = false; ///< the task, in the trash too, or the habit
    std::chrono::seconds focused{0};

    bool operator==(const FocusSubject &) const = default;
};

/// A focus session that is over.
struct FocusRecordRow {
    QString recordID;
    KWFocusType type = KWFocusTypePomo;
    Instant startDate{};
    Instant endDate{};
    std::chrono::seconds pause{0};
    std::chrono::seconds focused{0};
    int sliceCount = 0;
    QList<FocusSubject> subjects{}; ///< each once, the one with the most time first; never empty

    const FocusSubject &mainSubject() const { return subjects.first(); }
    bool operator==(const FocusRecordRow &) const = default;
};

/// Which part of all the focus of an account a page shows.
struct FocusPageRequest {
    static constexpr int recordsAtOnce = 30;

    std::optional<FocusDays> recordDays{}; ///< on which the records begin; none: any
    int recordLimit = recordsAtOnce;
    FocusPeriod period{};

    bool operator==(const FocusPageRequest &) const = default;
};

struct FocusPageContent {
    int pomoGoal = 0;                  ///< Pomos a day; none: 0
    std::chrono::minutes focusGoal{0}; ///< a day; none: 0
    std::array<FocusDay, 7> week{};    ///< today and the six days before it, the earliest first
    QList<FocusRecordRow> records{};   ///< the latest first
    bool hasMoreRecords = false;
    FocusStatistics statistics{};

    const FocusDay &today() const { return week.back(); }
    bool operator==(const FocusPageContent &) const = default;
};

/// The focus that a task had, beside what was estimated.
struct FocusOfTask {
    int pomos = 0;
    std::chrono::seconds focused{0};
    int estimatedPomos = 0; ///< none: 0
    std::chrono::seconds estimated{0};

    bool operator==(const FocusOfTask &) const = default;
};

struct FocusOfHabit {
    std::chrono::seconds today{0};
    std::chrono::seconds inTotal{0};

    bool operator==(const FocusOfHabit &) const = default;
};
