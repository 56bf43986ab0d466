#pragma once

#include "corvexkit/Result.h"
#include "focus/FocusCredit.h"

class OrvaneKit;
struct KWFocusSliceModel;

/// A focus session that is over, ready to be stored.
struct FocusRecord {
    Instant startDate{};
    Instant endDate{};
    KWFocusType type = KWFocusTypePomo;
    KWPomoStatus status = KWPomoStatusCompleted;
    std::int64_t pauseDuration = 0; ///< seconds
    QList<FocusStretch> stretches{};

    FocusCreditSource creditSource() const
    {
        return {.type = type, .status = status, .startDate = startDate};
    }
    bool operator==(const FocusRecord &) const = default;
};

/// Stores focus sessions and credits their tasks and habits, one save each. Main thread.
class FocusRecordWriter {
public:
    /// The kit outlives it.
    explicit FocusRecordWriter(OrvaneKit &kit) : m_kit(kit) {}

    /// Stores a completed session of the user who is signed in, with a slice for each stretch that is no
    /// pause and not empty, and gives the credits. Answers the id of the new KWPomodoro.
    Result<QString> write(const FocusRecord &record);
    /// Gives the credits alone: what is left of a session that was given up.
    Result<void> updateFocusSummary(const FocusRecord &record);
    /// The first for a completed session that is not too short, the second for any other.
    Result<void> store(const FocusRecord &record);

    /// One of the kind that began then is there: the program broke off right behind the save.
    bool isStored(const FocusRecord &record) const;

    /// The same inside a save of the caller; credits nothing.
    static QString insert(const FocusRecord &record, const QString &userID, ObjectContext &context);
    /// The slices of such a session as they are stored, title, list and tags copied from what each was spent
    /// on.
    static QList<KWFocusSliceModel> slicesOf(const QList<FocusStretch> &stretches, ObjectContext &context);

private:
    OrvaneKit &m_kit;
};
