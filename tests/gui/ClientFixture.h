#pragma once

#include "client/DesktopRooms.h"
#include "model/OrvaneKit.h"
#include "support/ManualClock.h"

#include <QTemporaryDir>

class MainWindow;

/// The client as a person starts it, on a fresh data folder: every room put together as in the program,
/// on a clock that the test sets, with real windows. Widgets are found by their object names.
class ClientFixture {
public:
    explicit ClientFixture(const char *localTime = "2026-11-21 09:00", const char *zone = "UTC");
    ~ClientFixture();

    ManualClock clock;

    OrvaneKit &kit() { return *m_kit; }
    DesktopRooms &rooms() { return *m_rooms; }
    /// None before signing in.
    MainWindow *window();

    /// Presses "Use on this computer" in the welcome window.
    void useOnThisComputer();
    /// Ends the program without closing it first and starts it again: what was saved is there.
    void restart(const DesktopServices &services = {}, const LaunchRequest &launch = {});

    /// The widget of that name in the main window; a missing one ends the program with a message.
    template <class Widget>
    Widget &find(const char *objectName)
    {
        return *static_cast<Widget *>(findWidget(objectName));
    }

    /// Types into the widget that has the focus, key by key.
    void type(const QString &text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Selects a list of the sidebar by its title, as a click does.
    void openList(const QString &title);
    /// The titles of the tasks in the middle pane.
    QStringList shownTitles();

private:
    QWidget *findWidget(const char *objectName);
    void start(const DesktopServices &services, const LaunchRequest &launch);
    void resizeWindow();

    QTemporaryDir m_folder;
    std::unique_ptr<OrvaneKit> m_kit;
    std::unique_ptr<DesktopRooms> m_rooms;
};
