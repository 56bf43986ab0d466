#pragma once

#include "habits/HabitDetailContent.h"
#include "habits/HabitPageContent.h"

#include <optional>

class ObjectContext;

/// Reads habits as views show them. On the thread of the context.
namespace HabitReader {

HabitPageContent readPage(const QString &userID, ObjectContext &context);

/// None when the habit is gone. The month is any day of it.
std::optional<HabitDetailContent> readDetail(const QString &habitID, Day month, ObjectContext &context);

} // namespace HabitReader
