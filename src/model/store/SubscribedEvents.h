#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWCalSubscriptionEventModel.h"

#include <vector>

class ObjectContext;

/// Puts the events of a feed in the place of those stored of its calendar, with the next save of the context.
/// One that is as it was stays, and so do its occurrences; one that is another now keeps its id. Answers
/// whether anything changes.
Result<bool> replaceEvents(const QString &subscriptionID, const QString &userID,
                           std::vector<KWCalSubscriptionEventModel> events, ObjectContext &context);
