#pragma once

#include "corvexkit/Result.h"
#include "focus/FocusPageContent.h"

class ObjectContext;

/// Reads focus as views show it, by the days of the zone in force. On the thread of the context.
namespace FocusReader {

Result<FocusPageContent> readPage(const FocusPageRequest &request, const QString &userID,
                                  ObjectContext &context);

Result<FocusStatistics> readStatistics(const FocusPeriod &period, const QString &userID,
                                       ObjectContext &context);

/// None when the task is gone. Everybody's focus on it.
std::optional<FocusOfTask> readTask(const QString &taskID, ObjectContext &context);

/// None when the habit is gone. Today is the day of habits.
std::optional<FocusOfHabit> readHabit(const QString &habitID, ObjectContext &context);

} // namespace FocusReader
