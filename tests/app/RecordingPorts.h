#pragma once

#include "app/AppPorts.h"

#include <QStringList>

/// What the ports were asked for, in order, as "port.operation".
struct PortCalls {
    QStringList names;

    void operator()(const char *name, const QString &details = {})
    {
        names << (QString::fromLatin1(name) + QLatin1Char(' ') + details).trimmed();
    }
    QStringList take() { return std::exchange(names, {}); }
};

template <class Port>
struct RecordingPort : Port {
    explicit RecordingPort(PortCalls &portCalls) : called{portCalls} {}
    PortCalls &called;
};

struct RecordingAccount final : AccountPort {
    void refreshCurrentUser() override { onRefresh(); }
    const std::optional<KWUserModel> &currentUser() const override { return user; }
    std::optional<KWUserModel> user;
    std::function<void()> onRefresh = [] {};
};

struct AnsweringSync final : KWSyncManager {
    void batchSyncIfNeeded() override {}
    void syncImmediatelyWithPushCompletionHandler(PushCompletionHandler handler) override { handler(pushed); }
    void manualSync() override {}
    Result<void> pushed;
};

struct RecordingTheme final : RecordingPort<ThemePort> {
    using RecordingPort::RecordingPort;
    void autoSwitchDarkIfNeeded() override { called("theme.autoSwitchDarkIfNeeded"); }
};

struct RecordingLinks final : RecordingPort<LinksPort> {
    using RecordingPort::RecordingPort;
    void open(const QString &link) override { called("links.open", link); }
};

struct RecordingMainWindow final : RecordingPort<MainWindowPort> {
    using RecordingPort::RecordingPort;
    void show() override { called("mainWindow.show"); }
    void close() override { called("mainWindow.close"); }
};

struct RecordingWelcomeWindow final : RecordingPort<WelcomeWindowPort> {
    using RecordingPort::RecordingPort;
    void showCentred() override { called("welcomeWindow.showCentred"); }
    void close() override { called("welcomeWindow.close"); }
};

struct RecordingWindows final : RecordingPort<WindowsPort> {
    using RecordingPort::RecordingPort;
    void closeAllOthers() override { called("windows.closeAllOthers"); }
    void bringToFront(const QString &token) override { called("windows.bringToFront", token); }
};

struct RecordingMainMenu final : RecordingPort<MainMenuPort> {
    using RecordingPort::RecordingPort;
    void setApplicationTitles(const ApplicationMenuTitles &titles) override
    {
        called("mainMenu.setApplicationTitles",
               QStringList{titles.about, titles.hide, titles.quit}.join(QStringLiteral(", ")));
    }
    void refresh() override { called("mainMenu.refresh"); }
};

struct RecordingStatusItem final : RecordingPort<StatusItemPort> {
    using RecordingPort::RecordingPort;
    void create() override { called("statusItem.create"); }
    void remove() override { called("statusItem.remove"); }
    void refresh() override { called("statusItem.refresh"); }
};

struct RecordingDock final : RecordingPort<DockPort> {
    using RecordingPort::RecordingPort;
    void refreshBadge(std::function<void()> whenShown) override
    {
        called("dock.refreshBadge");
        whenShown();
    }
    void clearBadge() override { called("dock.clearBadge"); }
};

/// The ports that people see something of, each noting what it is asked for.
struct RecordingPorts {
    PortCalls calls;
    RecordingAccount account;
    AnsweringSync sync;
    RecordingMainMenu mainMenu{calls};
    RecordingTheme theme{calls};
    RecordingLinks links{calls};
    RecordingMainWindow mainWindow{calls};
    RecordingWelcomeWindow welcomeWindow{calls};
    RecordingWindows windows{calls};
    RecordingStatusItem statusItem{calls};
    RecordingDock dock{calls};

    AppPorts ports()
    {
        return {.account = account,
                .sync = sync,
                .mainMenu = mainMenu,
                .theme = theme,
                .links = links,
                .mainWindow = mainWindow,
                .welcomeWindow = welcomeWindow,
                .windows = windows,
                .statusItem = statusItem,
                .dock = dock};
    }
    void signIn() { account.user.emplace().sid = QStringLiteral("user1"); }

    /// What a sign-in asks for.
    static QStringList callsOfSignIn()
    {
        return {QStringLiteral("statusItem.create"),
                QStringLiteral("mainMenu.setApplicationTitles About Orvane, Hide Orvane, Quit Orvane"),
                QStringLiteral("welcomeWindow.close"), QStringLiteral("mainWindow.show")};
    }
};
