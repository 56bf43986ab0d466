#pragma once

#include <QString>

/// The notifications of the product. Each constant holds its own text; who posts it, with what object
/// and user info, stands beside it.

// Sync and account, posted by the sync manager and the account manager. An account on this computer posts
// only the two of signing in and out.
inline const QString KWSyncWillBatchPullNotification = QStringLiteral("KWSyncWillBatchPullNotification");
inline const QString KWSyncDidBatchPullNotification = QStringLiteral("KWSyncDidBatchPullNotification");
/// In the user info of the latter, unless they are true: whether the pull succeeded and brought something.
inline const QString kKWSyncBatchPullResultKey = QStringLiteral("kKWSyncBatchPullResultKey");
inline const QString kKWSyncBatchPullHasChangesKey = QStringLiteral("kKWSyncBatchPullHasChangesKey");
inline const QString KWSyncWillBatchPushNotification = QStringLiteral("KWSyncWillBatchPushNotification");
inline const QString KWSyncDidBatchPushNotification = QStringLiteral("KWSyncDidBatchPushNotification");
/// The person asked for a sync.
inline const QString KWManualSyncWillActiviteNotification =
    QStringLiteral("KWManualSyncWillActiviteNotification");
inline const QString KWUserDidSignInNotification = QStringLiteral("KWUserDidSignInNotification");
inline const QString KWUserDidSignOutNotification = QStringLiteral("KWUserDidSignOutNotification");
inline const QString kKWAccountStatusChangedNotification =
    QStringLiteral("kKWAccountStatusChangedNotification");
inline const QString kKWAccountProfileChangedNotification =
    QStringLiteral("kKWAccountProfileChangedNotification");
inline const QString kKWAccountAvatarChangedNotification =
    QStringLiteral("kKWAccountAvatarChangedNotification");

// What a pull brought, posted by the sync manager.
inline const QString KWSyncDidPullPomoSettingsNotification =
    QStringLiteral("KWSyncDidPullPomoSettingsNotification");
inline const QString KWSyncDidPullHabitsNotification = QStringLiteral("KWSyncDidPullHabitsNotification");
/// Lists, folders, tags or filters stand in another order.
inline const QString KWSidebarSortOrderDidChangeNotification =
    QStringLiteral("KWSidebarSortOrderDidChangeNotification");
inline const QString KWTeamDidPullNotification = QStringLiteral("KWTeamDidPullNotification");
/// In the user info, `kKWSingleProjectSyncHasChangesKey` is a bool.
inline const QString KWSingleProjectSyncFinishedNotification =
    QStringLiteral("KWSingleProjectSyncFinishedNotification");
inline const QString kKWSingleProjectSyncHasChangesKey = QStringLiteral("kKWSingleProjectSyncHasChangesKey");
inline const QString KWShareProjectRemovedTeamworkerNotification =
    QStringLiteral("KWShareProjectRemovedTeamworkerNotification");
inline const QString KWDidReceiveRemotePushNotification =
    QStringLiteral("KWDidReceiveRemotePushNotification");

// Subscribed calendars: events came, posted by the room of the calendar; one is shown or hidden, posted by
// KWCalendarDisplayConfigurationManager; the account may subscribe to them or not, posted by the service.
inline const QString KWCalSubDidPullEventsNotification = QStringLiteral("KWCalSubDidPullEventsNotification");
inline const QString KWCalSubDisplayStatusDidChangeNotification =
    QStringLiteral("KWCalSubDisplayStatusDidChangeNotification");
inline const QString KWCalSubscriptionAvaliableDidChangeNotification =
    QStringLiteral("KWCalSubscriptionAvaliableDidChangeNotification");

/// Tags were made, renamed or deleted; posted by KWTagCache.
inline const QString KWTagCacheDidUpdateNotification = QStringLiteral("KWTagCacheDidUpdateNotification");

/// Occurrences were generated or deleted; posted by KWRepeatInstanceService. In the user info, "startDate"
/// and "endDate" are the range that was asked for, as QDateTime.
inline const QString KWKWRepeatInstanceGeneratedNotification =
    QStringLiteral("KWKWRepeatInstanceGeneratedNotification");

// The clock, posted by the application; the object is the moment, as a QDateTime.
inline const QString KWNewMinuteComesNotification = QStringLiteral("KWNewMinuteComesNotification");
inline const QString KWNewHourComesNotification = QStringLiteral("KWNewHourComesNotification");
inline const QString KWNewDayComesNotification = QStringLiteral("KWNewDayComesNotification");
/// The day of habits, which may begin later than midnight. Posted by `HabitDayWatch`.
inline const QString KWNewHabitDayComesNotification = QStringLiteral("KWNewHabitDayComesNotification");

// Focus, posted by the room of focus. The user info of the first has the raw values of the state of a Pomo
// before and after as "old" and "new"; of a stopwatch it is empty. The object of the second is the seconds
// left of a Pomo or break; of a stopwatch there is none.
inline const QString KWFocusRunningStateChanged = QStringLiteral("KWFocusRunningStateChanged");
inline const QString KWFocusRunningCountDownChanged = QStringLiteral("KWFocusRunningCountDownChanged");
/// Something else is focused on, or nothing.
inline const QString KWFocusRunningTaskChanged = QStringLiteral("KWFocusRunningTaskChanged");

// The computer, posted by the service in `platform`; neither comes where the system does not tell of sleep.
inline const QString WorkspaceWillSleepNotification = QStringLiteral("WorkspaceWillSleepNotification");
inline const QString WorkspaceDidWakeNotification = QStringLiteral("WorkspaceDidWakeNotification");
/// The zone of the clock is another one now; posted by the service in `platform`.
inline const QString SystemTimeZoneDidChangeNotification =
    QStringLiteral("SystemTimeZoneDidChangeNotification");

/// The store was written from outside, or by an import. Posted after the main context has read it again.
inline const QString KWDataDidChangeOutsideMainAppNotification =
    QStringLiteral("KWDataDidChangeOutsideMainAppNotification");

// Settings, posted by whoever saves them: the manager of that name, AccountSettings, ListSortType (the user
// info of the display of a list has the "listID"), and Preferences for what is one switch on a page.
inline const QString KWUserSettingsDidChangeNotification =
    QStringLiteral("KWUserSettingsDidChangeNotification");
inline const QString KWCalendarDisplayConfigurationDidChangeNotification =
    QStringLiteral("KWCalendarDisplayConfigurationDidChangeNotification");
inline const QString KWPomoSettingsChangedNotification = QStringLiteral("KWPomoSettingsChangedNotification");
inline const QString KWHabitSettingsChangedNotification =
    QStringLiteral("KWHabitSettingsChangedNotification");
inline const QString KWSmartListDisplayStatusDidChangeNotification =
    QStringLiteral("KWSmartListDisplayStatusDidChangeNotification");
inline const QString KWListDisplayConfigurationDidChangeNotification =
    QStringLiteral("KWListDisplayConfigurationDidChangeNotification");
inline const QString KWTaskDefaultConfigurationChangedNotification =
    QStringLiteral("KWTaskDefaultConfigurationChangedNotification");
inline const QString KWSmartRecognitionConfigurationDidChangeNotification =
    QStringLiteral("KWSmartRecognitionConfigurationDidChangeNotification");
inline const QString KWSyncDidPullHabitSettingsNotification =
    QStringLiteral("KWSyncDidPullHabitSettingsNotification");
/// Colours or sizes are others now; posted by the client.
inline const QString KWThemeDidChangeNotification = QStringLiteral("KWThemeDidChangeNotification");

/// A task is about to be duplicated; posted by KWTaskCopier, the object is its id.
inline const QString KWWillDuplicateTaskNotification = QStringLiteral("KWWillDuplicateTaskNotification");
/// Duplicating was chosen in the detail; posted by it, the object is the task's id.
inline const QString KWDetailViewDidSelectDuplicateNotification =
    QStringLiteral("KWDetailViewDidSelectDuplicateNotification");
/// The tasks below a task were folded or unfolded; posted by the list, the object is the task's id.
inline const QString collapseStateChanged = QStringLiteral("KWTask.collapseStateChanged");

/// What waits to be deleted changed; posted by KWDelayDeleteManager. In the user info "type" is a
/// KWDelayDeleteType, "status" a KWDelayDeleteStatus, both as int, and "taskIDs" the ids concerned.
inline const QString delayDeleteStatusChangedNotification =
    QStringLiteral("delayDeleteStatusChangedNotification");

/// Counts were worked out again; posted by KWProjectListCountFetcher.
inline const QString countChanged = QStringLiteral("countChanged");
