#pragma once

#include "corvexkit/time/CXTimeZone.h"

class IcsComponent;

/// The zone that the observances of a VTIMEZONE amount to (RFC 5545 section 3.6.5): winter and summer time as
/// they are now and, for a zone that goes by no such rule, the offset that came last. Nothing where it has
/// none. Any thread.
std::optional<CXTimeZone> zoneOfObservances(const IcsComponent &zone);
