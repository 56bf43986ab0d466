#pragma once

#include "app/MenuCommand.h"

#include <QString>

#include <functional>

/// What the session calls of windows, menus and the desktop's own surfaces. Each class is also the
/// surface that is not there: it does nothing. Main thread.

class MainWindowPort {
public:
    virtual ~MainWindowPort() = default;
    virtual void show() {}
    virtual void close() {}
};

class WelcomeWindowPort {
public:
    virtual ~WelcomeWindowPort() = default;
    virtual void showCentred() {}
    virtual void switchToLastPage() {}
    /// Closes the window and drops it; the next call of the others makes a new one.
    virtual void close() {}
};

class PreferencesWindowPort {
public:
    virtual ~PreferencesWindowPort() = default;
    virtual void close() {}
};

/// The small window in which a task is typed without the main one.
class QuickAddPort {
public:
    virtual ~QuickAddPort() = default;
    /// `title` is put into its field. As long as nobody is signed in a title waits, and nothing is shown.
    virtual void show(const QString & /*title*/, const QString & /*activationToken*/) {}
};

/// The windows besides those, and the program's place on the screen.
class WindowsPort {
public:
    virtual ~WindowsPort() = default;
    virtual void closeAllOthers() {}
    /// `activationToken`: from the start that asked for it, may be empty.
    virtual void bringToFront(const QString & /*activationToken*/) {}
};

/// The titles of the items that name the program.
struct ApplicationMenuTitles {
    QString about;
    QString hide;
    QString quit;
    bool operator==(const ApplicationMenuTitles &) const = default;
};

class MainMenuPort {
public:
    virtual ~MainMenuPort() = default;
    virtual void updateTaskMenuItemsWithEnabled(bool /*enabled*/) {}
    virtual void hideUpdateItem() {}
    virtual void setApplicationTitles(const ApplicationMenuTitles & /*titles*/) {}
    /// Gives the command as its menu item does, from the event loop.
    virtual void trigger(MenuCommand /*command*/) {}
    /// What menus show of lists and settings may have changed.
    virtual void refresh() {}
};

class KeyboardShortcutsPort {
public:
    virtual ~KeyboardShortcutsPort() = default;
    virtual void setUp() {}
    virtual void bindMenuItem(MenuCommand /*command*/, int /*slot*/) {}
    /// Reads the shortcuts of the signed-in user.
    virtual void refreshConfiguration() {}
};

/// The item in the desktop's status area, with its popover.
class StatusItemPort {
public:
    virtual ~StatusItemPort() = default;
    virtual void create() {}
    virtual void remove() {}
    /// Shows the state of the focus session, or none.
    virtual void refresh() {}
    virtual void resetPopover() {}
};

/// The program's icon in the dock.
class DockPort {
public:
    virtual ~DockPort() = default;
    /// Shows or hides the icon as the preference says.
    virtual void applyIconPreference() {}
    /// Counts what the preference selects, in the background, and shows the number; then calls
    /// `whenShown`, unless the program ends first.
    virtual void refreshBadge(std::function<void()> whenShown) { whenShown(); }
    virtual void clearBadge() {}
};

/// KWProjectListCountFetcher: the counts of the sidebar.
class ListCountsPort {
public:
    virtual ~ListCountsPort() = default;
    virtual void clear() {}
};

/// What the desktop shows of tasks outside the program's windows.
class WidgetTimelinesPort {
public:
    virtual ~WidgetTimelinesPort() = default;
    virtual void reloadAll() {}
};
