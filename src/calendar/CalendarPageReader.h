#pragma once

#include "calendar/CalendarPageContent.h"
#include "corvexkit/Result.h"

#include <QSet>

class ObjectContext;

/// Reads what stands on the page, as the calendar of the user is set to show it, and lays it out. Tasks that
/// are hidden are left out, with their occurrences and items. On the thread of the context.
Result<CalendarPageContent> readCalendarPage(const CalendarPage &page, const QString &userID,
                                             const QSet<QString> &hiddenTasks, ObjectContext &context);
