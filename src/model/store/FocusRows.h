#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/Instant.h"
#include "model/records/KWConstants.h"

#include <QStringList>

#include <vector>

class ObjectContext;

/// A stretch of a stored focus session with what it was spent on, as that is called now, or as it was called
/// then when it is gone. A plain value, read in bulk.
struct FocusRow {
    QString sessionID;
    KWFocusType type = KWFocusTypePomo;
    Instant sessionStart{};
    Instant sessionEnd{};
    std::chrono::seconds pause{0}; ///< of the session
    Instant startDate{};
    Instant endDate{};
    QString taskID;
    QString habitID;
    bool isThere = false; ///< the task or habit; in the trash a task is there still
    bool isInInbox = false;
    QString title;
    QString listID; ///< of a task that is there
    QString listName;
    QString color;    ///< "#rrggbb" of the list or habit; empty for none
    QStringList tags; ///< their names

    std::chrono::milliseconds length() const
    {
        return std::max(endDate - startDate, std::chrono::milliseconds{0});
    }
};

/// Which completed sessions of a user are wanted: those that take place in [from, to).
struct FocusRowsRequest {
    QString userID;
    Instant from{};
    Instant to{};
};

/// Their stretches: session after session by their start, each with its stretches in order. A session without
/// any is one stretch, shorter than it by the pause. On the thread of the context.
Result<std::vector<FocusRow>> readFocusRows(const FocusRowsRequest &request, ObjectContext &context);

/// The same of those that begin in [from, to), the latest first, and so many of them at most.
Result<std::vector<FocusRow>> readLatestFocusRows(const FocusRowsRequest &request, int sessions,
                                                  ObjectContext &context);
