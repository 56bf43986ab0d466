#pragma once

#include "capture/TitleRecognition.h"
#include "corvexkit/time/CXTimeZone.h"

class QJsonObject;

/// A recognition as `orvane add --dry-run` prints it: "title", "tags", "priority", "list", "assignee",
/// "date" and "recognized". Times are ISO 8601 local to `zone`, the end of an all-day date is exclusive;
/// what was not found is null, but the priority 0. Places are in UTF-16 units of the typed text.
QJsonObject dryRunObject(const TitleRecognition &recognition, const CXTimeZone &zone);
