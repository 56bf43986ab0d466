#pragma once

#include "corvexkit/Result.h"
#include "integration/summary/SummaryChoice.h"
#include "model/records/KWTaskModel.h"

#include <QSet>

#include <vector>

class ObjectContext;

struct SummaryTask {
    KWTaskModel task;
    QString listName;
    int listPlace = 0; ///< among the lists
    QStringList tagLabels;
    std::chrono::seconds focused{0}; ///< on it, within the days
    /// Of its completion, or of its date where that is within the days; none otherwise.
    std::optional<Day> day;

    bool isClosed() const { return task.status != KWTaskStatusOpen; }
};

struct SummaryHabit {
    QString name;
    QString unit;
    int doneDays = 0;
    double amount = 0; ///< of all days; 0 for a habit that is done or not
};

/// What was done in some days and what is to be done in them. A plain value.
struct SummaryContent {
    SummaryChoice choice;
    Day today{};
    /// Completed ones by their completion, open ones by their date.
    std::vector<SummaryTask> tasks;
    std::chrono::seconds focused{0};
    int sessions = 0;                 ///< of focus
    std::vector<SummaryHabit> habits; ///< those with a day done, in their order
};

/// Lists narrow the tasks and their focus; habits stand in no list, and are left out then. `hiddenTasks` are
/// left out. On the thread of the context.
Result<SummaryContent> readSummary(const SummaryChoice &choice, const QString &userID, ObjectContext &context,
                                   const QSet<QString> &hiddenTasks = {});
