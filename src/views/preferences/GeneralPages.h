#pragma once

#include "app/ports/LoginItemPort.h"
#include "views/preferences/PreferencesPage.h"

/// How the program looks and starts.
class GeneralPage : public PreferencesPage {
    Q_OBJECT

public:
    GeneralPage(Preferences &preferences, LoginItemPort &loginItem);

Q_SIGNALS:
    /// The number on the icon is to be counted anew.
    void badgeChanged();
};

/// Reminders.
class NotificationsPage : public PreferencesPage {
    Q_OBJECT

public:
    explicit NotificationsPage(Preferences &preferences);

private:
    void addReminders(const char *name, const QString &label, QStringList KWUserSettingsModel::*field,
                      QList<Choice<QStringList>> choices);
};

/// The week, the clock, and what words such as "morning" mean.
class DateTimePage : public PreferencesPage {
    Q_OBJECT

public:
    explicit DateTimePage(Preferences &preferences);

private:
    void addSmartTime(const char *name, const QString &label, int KWUserSettingsModel::*field);
};

/// What a new task gets where nothing else is said.
class NewTasksPage : public PreferencesPage {
    Q_OBJECT

public:
    explicit NewTasksPage(Preferences &preferences);

private:
    void addRecognition(const char *name, const char *label, bool KWSmartRecognitionConfiguration::*field,
                        const char *hint);
};

/// Where habits are shown, and when their day begins.
class HabitsPage : public PreferencesPage {
    Q_OBJECT

public:
    explicit HabitsPage(Preferences &preferences);
};

/// Which smart lists the sidebar shows.
class SmartListsPage : public PreferencesPage {
    Q_OBJECT

public:
    explicit SmartListsPage(Preferences &preferences);
};
