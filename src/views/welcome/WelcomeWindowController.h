#pragma once

#include "app/ports/WindowPorts.h"

#include <QObject>

#include <memory>

class KWAccountManager;
class WelcomeWindow;

/// The welcome window, made when it is first shown. Main thread.
class WelcomeWindowController : public QObject, public WelcomeWindowPort {
    Q_OBJECT

public:
    explicit WelcomeWindowController(KWAccountManager &account);
    ~WelcomeWindowController() override;

    void showCentred() override;
    void switchToLastPage() override;
    void close() override;

    /// None while it is not shown.
    WelcomeWindow *window() const { return m_window.get(); }

private:
    WelcomeWindow &made();

    KWAccountManager &m_account;
    std::unique_ptr<WelcomeWindow> m_window;
};
