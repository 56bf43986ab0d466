#pragma once

#include "calendar/SourceModel.h"
#include "corvexkit/Result.h"
#include "model/records/KWRepeatInstance.h"
#include "model/records/KWRepeatInstanceFetchFlag.h"

#include <QHash>

#include <functional>

/// One run over the repeating tasks and events of a user, tasks first: what of a range is not generated yet
/// is, and what was generated from something that is another one now, or gone, is deleted. On the thread of
/// its context.
class RepeatInstanceRun {
public:
    struct Request {
        QString userID;
        Instant startDate;
        Instant endDate; ///< included
    };
    /// `isCancelled` is asked between the steps and after every source: nothing is written then.
    RepeatInstanceRun(Request request, ObjectContext &context, std::function<bool()> isCancelled);

    /// Whether anything was generated or deleted. It is written with the next save of the context.
    Result<bool> perform();

private:
    using Flag = KWRepeatInstanceFetchFlag::Range;
    struct Range {
        Instant from;
        Instant to;
    };
    struct Task {
        SourceModel source;
        QList<Range> missing{};
        bool isChanged = false; ///< what is stored of it does not count
    };

    Result<std::vector<SourceModel>> sources() const;
    Result<void> readFlags();
    void reconcile(SourceModel source);
    Result<void> readExisting();
    void expand(const Task &task);
    Result<bool> write();

    const Request m_request;
    ObjectContext &m_context;
    const std::function<bool()> m_isCancelled;
    const CXTimeZone m_local;
    const std::chrono::weekday m_firstWeekday;

    QHash<QString, Flag> m_flags; // of what was not met among the sources yet
    std::vector<Task> m_tasks;    // of which something is missing
    QHash<QString, std::vector<Instant>> m_existedInstanceDateDict; // ascending
    QStringList m_changed;
    std::vector<Flag> m_newFlags;
    std::vector<Flag> m_widenedFlags;
    std::vector<KWRepeatInstance::Made> m_made;
};
