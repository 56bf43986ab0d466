#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/CXClock.h"
#include "model/store/KWTaskListItemModel.h"
#include "model/store/ListDataRequest.h"

class Connection;

/// The rows of the events that take place in the days of the list, each by its start, occurrences behind the
/// events that they are of. None where the request asks for none, and for lists that are not made of days.
Result<QList<KWTaskListItemModel>> readEventRows(const ListDataRequest &request, const CXClock &clock,
                                                 Connection &connection);

/// Whether the calendar that is asked for has events behind those days; of what repeats, also those that are
/// not stored yet.
Result<bool> hasLaterEvents(const ListDataRequest &request, const CXClock &clock, Connection &connection);
