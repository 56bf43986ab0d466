#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "model/records/KWTaskModel.h"
#include "model/store/KWTaskListItemModel.h"

#include <QList>

/// The shortest endings, of six digits at least, that tell the ids apart. Ids begin with the time, so
/// their endings are what differs.
QStringList shortIDs(const QStringList &ids);

/// One line of `orvane list`: id, date and title in columns, then tags and priority; see
/// terminalText().
QString taskLine(const KWTaskListItemModel &task, const QString &shortID, const CXTimeZone &zone);
/// The same of a task that was just added, then its list and `notes` in parentheses.
QString addedTaskLine(const KWTaskModel &task, const QString &list, const QStringList &notes,
                      const CXTimeZone &zone);

/// The local date for a column or for JSON: a day, a day and time, or nothing.
QString localDateText(const std::optional<Instant> &date, bool isAllDay, const CXTimeZone &zone);
