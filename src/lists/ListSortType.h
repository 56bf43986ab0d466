#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWConstants.h"
#include "model/records/KWListIdentifier.h"

class KWCoreDataManager;
class KWNotificationCenter;

/// Remembers by what the account sorts the list, with the list itself: its record, or the setting of a smart
/// list. One save; posts "KWListDisplayConfigurationDidChangeNotification" with its "listID". Main thread.
Result<void> saveSortType(KWTaskSortType sortType, const KWListIdentifier &list, const QString &userID,
                          KWCoreDataManager &manager, KWNotificationCenter &center);
