#include "model/store/TimeZoneAdaptation.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"

int adaptDatesToLocalTimeZone(const CXTimeZone &lastLocalZone, ObjectContext &context)
{
    // All at once, not one by one for the items.
    context.fetch<KWTask>(
        {.where = "sid IN (SELECT taskID FROM checklistItems WHERE startDate IS NOT NULL)"});
    int changed = 0;
    // Before their tasks, which still say in which zone they were set.
    for (KWChecklistItem *each : context.fetch<KWChecklistItem>(
             {.where = "startDate IS NOT NULL AND (isAllDay = 1 OR taskID IN (SELECT sid FROM tasks WHERE "
                       "isFloating = 1)) AND taskID IN (SELECT sid FROM tasks WHERE syncStatus <> 3)"}))
        changed += each->adaptToTimeZoneFromDesignatedToLocalIfNeeded(lastLocalZone);
    for (KWTask *each :
         context.fetch<KWTask>({.where = "startDate IS NOT NULL AND (isAllDay = 1 OR isFloating = 1) "
                                         "AND syncStatus <> 3"}))
        changed += each->adaptToTimeZoneFromDesignatedToLocalIfNeeded(lastLocalZone);
    return changed;
}
