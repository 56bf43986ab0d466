#pragma once

#include "focus/FocusRecordWriter.h"
#include "model/store/UndoToken.h"

#include <functional>

class KWPomodoro;

/// Adds, changes and deletes focus records by hand, each in one save that also corrects what tasks and habits
/// had of them. What is wrong fails with a sentence and changes nothing: an end that is not after the start
/// or is still to come, a record of more than a day or less than FocusLimits::minimumFocus, time that another
/// record has already (not the time of its pauses), a task or habit that is gone. Main thread.
class FocusRecordEditor {
public:
    static constexpr std::chrono::hours longest{24};

    /// The kit outlives it.
    explicit FocusRecordEditor(OrvaneKit &kit) : m_kit(kit) {}

    struct Entry {
        FocusTarget target{};
        Instant startDate{};
        Instant endDate{};
        KWFocusType type = KWFocusTypePomo;
    };
    struct Made {
        QString recordID;
        UndoToken undo;
    };
    Result<Made> add(const Entry &entry);

    struct Change {
        Instant startDate{};
        Instant endDate{};
        std::optional<FocusTarget> target{}; ///< of all of it; none: each stretch keeps its own
    };
    /// Pauses inside it stay, see stretchesFor().
    Result<UndoToken> change(const QString &recordID, const Change &change);
    Result<UndoToken> remove(const QString &recordID);

private:
    Result<UndoToken> save(const std::function<Result<void>(ObjectContext &)> &block);
    Result<UndoToken> saveRecord(const QString &recordID,
                                 const std::function<Result<void>(KWPomodoro &)> &block);
    Result<void> check(const FocusRecord &record, const QString &recordID, ObjectContext &context) const;
    void credit(const FocusRecord &record, ObjectContext &context) const;
    void takeCreditBack(const FocusRecord &record, ObjectContext &context) const;

    OrvaneKit &m_kit;
};
