#pragma once

#include <QObject>

#include <memory>

class FocusPresenter;
class FocusWindow;
class KWUserDefaults;
class MainMenu;

/// The small window of focus, made when it is first asked for. It answers the menu's command. Main thread.
class FocusWindowController : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Rooms {
        FocusPresenter &presenter;
        MainMenu &menu;
        KWUserDefaults &defaults;
    };
    explicit FocusWindowController(Rooms rooms);
    ~FocusWindowController() override;

    void show();
    /// Shows it, or hides it when it is shown.
    void toggle();
    /// None until it is first shown.
    FocusWindow *window() const { return m_window.get(); }

private:
    Rooms m_rooms;
    std::unique_ptr<FocusWindow> m_window;
};
