#pragma once

#include <QString>

/// What starting the program calls in rooms that `app` does not know. Each class is also the room that
/// is not there: it does nothing. Main thread; nothing here may take long.

/// KWAppManager: remembers when the program was last started.
class AppManagerPort {
public:
    virtual ~AppManagerPort() = default;
    virtual void recordDateWhenLaunching() {}
};

/// Measures how long the program is used.
class UsageTimerPort {
public:
    virtual ~UsageTimerPort() = default;
    virtual void start() {}
};

class ThemeFilesPort {
public:
    virtual ~ThemeFilesPort() = default;
    virtual void migrateIfNeeded() {}
};

class ThemePort {
public:
    virtual ~ThemePort() = default;
    virtual void setUp() {}
    /// Goes dark, or light again, when a schedule says so.
    virtual void autoSwitchDarkIfNeeded() {}
};

class FocusCoordinatorPort {
public:
    virtual ~FocusCoordinatorPort() = default;
    /// Restores the focus session that was running when the program ended.
    virtual void applicationDidFinishLaunching() {}
};

/// Offers tasks to the search of the desktop.
class SearchIndexPort {
public:
    virtual ~SearchIndexPort() = default;
    virtual void createContentProvider() {}
};

/// Links of the scheme "orvane".
class LinksPort {
public:
    virtual ~LinksPort() = default;
    /// From now on links that are opened elsewhere on the desktop come here.
    virtual void registerForOpenEvents() {}
    virtual void open(const QString & /*link*/) {}
};

class SoftwareUpdatePort {
public:
    virtual ~SoftwareUpdatePort() = default;
    virtual void startCheck() {}
    /// Whether a store or a package manager brings new versions, so that the program offers none.
    virtual bool comesFromAppStore() const { return true; }
};

/// The small program that starts this one with the session, where a desktop needs one.
class LoginItemHelperPort {
public:
    virtual ~LoginItemHelperPort() = default;
    virtual void quitIfRunning() {}
};

/// Reminders and other messages of the desktop, and what is pressed on them.
class UserNotificationsPort {
public:
    virtual ~UserNotificationsPort() = default;
    virtual void applicationDidFinishLaunching() {}
};

/// KWSignificantTimeChangeObserver: what a change of the time zone asks for.
class SignificantTimeChangePort {
public:
    virtual ~SignificantTimeChangePort() = default;
    virtual void applicationDidFinishLaunching() {}
};
