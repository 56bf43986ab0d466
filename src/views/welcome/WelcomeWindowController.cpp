#include "views/welcome/WelcomeWindowController.h"

#include "model/account/KWAccountManager.h"
#include "views/welcome/WelcomeWindow.h"

#include <QLocale>
#include <QScreen>

WelcomeWindowController::WelcomeWindowController(KWAccountManager &account) : m_account(account) {}

WelcomeWindowController::~WelcomeWindowController() = default;

WelcomeWindow &WelcomeWindowController::made()
{
    if (!m_window) {
        m_window = std::make_unique<WelcomeWindow>();
        connect(m_window.get(), &WelcomeWindow::localAccountRequested, this, [this] {
            if (const Result<void> signedIn = m_account.signInLocally(QLocale{}); !signedIn && m_window)
                m_window->showProblem(signedIn.error().sentence);
        });
    }
    return *m_window;
}

void WelcomeWindowController::showCentred()
{
    WelcomeWindow &window = made();
    const QRect screen = window.screen()->availableGeometry();
    window.move(screen.center() - window.rect().center());
    window.show();
}

void WelcomeWindowController::switchToLastPage() { made().showLastPage(); }

void WelcomeWindowController::close()
{
    // Signing in is asked for by the window's own button, which is still on the stack.
    if (!m_window) return;
    m_window->hide();
    m_window.release()->deleteLater();
}
