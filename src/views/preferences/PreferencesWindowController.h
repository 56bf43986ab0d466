#pragma once

#include "app/DataCare.h"
#include "app/Preferences.h"
#include "app/ports/LoginItemPort.h"
#include "app/ports/WindowPorts.h"

#include <QObject>

#include <functional>
#include <memory>

class MainMenu;
class PreferencesWindow;

/// The preferences window, made when it is first asked for and dropped with the account. It answers the
/// menu's commands for the preferences and the keyboard shortcuts. Main thread.
class PreferencesWindowController : public QObject, public PreferencesWindowPort {
    Q_OBJECT

public:
    struct Rooms {
        OrvaneKit &kit;
        MainMenu &menu;
        LoginItemPort &loginItem;
        RelaunchPort &relaunch;
        /// Counts the number on the icon anew.
        std::function<void()> refreshBadge;
    };
    explicit PreferencesWindowController(Rooms rooms);
    ~PreferencesWindowController() override;

    /// "general", "notifications", "date-time", "new-tasks", "focus", "habits", "smart-lists", "shortcuts",
    /// "data".
    void show(const QString &page = {});
    static bool hasPage(const QString &page);
    void close() override;
    /// None until it is first shown.
    PreferencesWindow *window() const { return m_window.get(); }

private:
    void make();

    Rooms m_rooms;
    Preferences m_preferences;
    DataCare m_care;
    std::unique_ptr<PreferencesWindow> m_window;
};
