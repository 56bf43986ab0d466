#pragma once

#include "model/records/KWAttachment.h"
#include "model/records/KWCalSubscription.h"
#include "model/records/KWCalSubscriptionEvent.h"
#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWColumn.h"
#include "model/records/KWComment.h"
#include "model/records/KWFilter.h"
#include "model/records/KWFocusSlice.h"
#include "model/records/KWFocusSummary.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWHabitFocus.h"
#include "model/records/KWHabitRecord.h"
#include "model/records/KWHabitSection.h"
#include "model/records/KWHabitSkip.h"
#include "model/records/KWListDisplayConfiguration.h"
#include "model/records/KWPomoSettings.h"
#include "model/records/KWPomodoro.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWProjectPinnedSortOrder.h"
#include "model/records/KWRepeatInstance.h"
#include "model/records/KWRepeatInstanceFetchFlag.h"
#include "model/records/KWSmartProjectSetting.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskSortOrders.h"
#include "model/records/KWTeam.h"
#include "model/records/KWTeammate.h"
#include "model/records/KWTeamworker.h"
#include "model/records/KWUser.h"
#include "model/records/KWUserSettings.h"

/// Every kind of record, owners before what belongs to them: `EVERY_RECORD(X)` calls the macro X with
/// the class of each. Whatever treats all records alike is made from this list: the store's templates,
/// export and import, and their tests.
#define EVERY_RECORD(X)                                                                                      \
    X(KWUser)                                                                                                \
    X(KWUserSettings)                                                                                        \
    X(KWProjectGroup)                                                                                        \
    X(KWProject)                                                                                             \
    X(KWColumn)                                                                                              \
    X(KWTag)                                                                                                 \
    X(KWFilter)                                                                                              \
    X(KWSmartProjectSetting)                                                                                 \
    X(KWListDisplayConfiguration)                                                                            \
    X(KWCalendarDisplayConfiguration)                                                                        \
    X(KWTask)                                                                                                \
    X(KWChecklistItem)                                                                                       \
    X(KWAttachment)                                                                                          \
    X(KWComment)                                                                                             \
    X(KWFocusSummary)                                                                                        \
    X(KWTaskDueDateSortOrder)                                                                                \
    X(KWTaskPrioritySortOrder)                                                                               \
    X(KWTaskProjectSortOrder)                                                                                \
    X(KWTaskTagSortOrder)                                                                                    \
    X(KWTaskPinnedSortOrder)                                                                                 \
    X(KWProjectPinnedSortOrder)                                                                              \
    X(KWHabitSection)                                                                                        \
    X(KWHabit)                                                                                               \
    X(KWHabitCheckin)                                                                                        \
    X(KWHabitRecord)                                                                                         \
    X(KWHabitSkip)                                                                                           \
    X(KWHabitFocus)                                                                                          \
    X(KWPomoSettings)                                                                                        \
    X(KWPomodoro)                                                                                            \
    X(KWFocusSlice)                                                                                          \
    X(KWCalSubscription)                                                                                     \
    X(KWCalSubscriptionEvent)                                                                                \
    X(KWRepeatInstance)                                                                                      \
    X(KWRepeatInstanceFetchFlag)                                                                             \
    X(KWTeam)                                                                                                \
    X(KWTeammate)                                                                                            \
    X(KWTeamworker)
