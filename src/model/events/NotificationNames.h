#pragma once

#include <QString>

/// The notifications of the product. Each constant holds its own text; who posts it, with what object
/// and user info, stands beside it.

// Sync and account, posted by the sync manager and the account manager.
inline const QString KWSyncWillBatchPullNotification = QStringLiteral("KWSyncWillBatchPullNotification");
inline const QString KWSyncDidBatchPullNotification = QStringLiteral("KWSyncDidBatchPullNotification");
inline const QString KWSyncWillBatchPushNotification = QStringLiteral("KWSyncWillBatchPushNotification");
inline const QString KWSyncDidBatchPushNotification = QStringLiteral("KWSyncDidBatchPushNotification");
inline const QString KWUserDidSignInNotification = QStringLiteral("KWUserDidSignInNotification");
inline const QString KWUserDidSignOutNotification = QStringLiteral("KWUserDidSignOutNotification");
inline const QString kKWAccountStatusChangedNotification =
    QStringLiteral("kKWAccountStatusChangedNotification");
inline const QString kKWAccountProfileChangedNotification =
    QStringLiteral("kKWAccountProfileChangedNotification");

// The clock, posted by the application; the object is the moment, as a QDateTime.
inline const QString KWNewMinuteComesNotification = QStringLiteral("KWNewMinuteComesNotification");
inline const QString KWNewHourComesNotification = QStringLiteral("KWNewHourComesNotification");
inline const QString KWNewDayComesNotification = QStringLiteral("KWNewDayComesNotification");

// The computer, posted by the service in `platform`; neither comes where the system does not tell of sleep.
inline const QString WorkspaceWillSleepNotification = QStringLiteral("WorkspaceWillSleepNotification");
inline const QString WorkspaceDidWakeNotification = QStringLiteral("WorkspaceDidWakeNotification");

/// Another process wrote the store. Posted after the main context has read it again.
inline const QString KWDataDidChangeOutsideMainAppNotification =
    QStringLiteral("KWDataDidChangeOutsideMainAppNotification");

// Settings.
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
inline const QString KWThemeDidChangeNotification = QStringLiteral("KWThemeDidChangeNotification");

/// Counts were worked out again; posted by KWProjectListCountFetcher.
inline const QString countChanged = QStringLiteral("countChanged");
