#pragma once

#include "corvexkit/time/CXTimeZone.h"

class ObjectContext;

/// Adapts the dates that follow the wall clock to the zone of the context's clock: those of tasks that
/// are all-day or floating, of checklist items that are all-day or belong to a floating task, and of events.
/// Tasks that only wait for their deletion to be pushed stay as they are, with their items. `lastLocalZone`
/// was in force before; it is the zone of dates that name none. Answers how many records changed; nothing is
/// saved yet. Dates that are adapted already do not change again.
int adaptDatesToLocalTimeZone(const CXTimeZone &lastLocalZone, ObjectContext &context);
