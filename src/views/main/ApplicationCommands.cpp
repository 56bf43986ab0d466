#include "views/main/ApplicationCommands.h"

#include "model/account/KWAccountManager.h"
#include "model/settings/KWLocalizedString.h"
#include "views/about/AboutWindow.h"
#include "views/alerts/UnsavedTextAlert.h"

#include <QApplication>

ApplicationCommands::ApplicationCommands(MainMenu &menu, KWAccountManager &account) : m_account(account)
{
    // From the event loop: the menu that was clicked goes with the windows.
    const auto later = [this](auto action) {
        return [this, action] { QMetaObject::invokeMethod(this, action, Qt::QueuedConnection); };
    };
    menu.handle(MenuCommand::About, *this, [this] { showAbout(); });
    menu.handle(MenuCommand::SignOut, *this, later([this] { signOut(); }));
    menu.handle(MenuCommand::Hide, *this, [this] { hideWindows(); });
    menu.handle(MenuCommand::Quit, *this, later([] { QCoreApplication::quit(); }));
    menu.handle(MenuCommand::CloseWindow, *this, later([] {
                    if (QWidget *window = QApplication::activeWindow()) window->close();
                }));
    menu.handle(MenuCommand::Minimise, *this, [] {
        if (QWidget *window = QApplication::activeWindow()) window->showMinimized();
    });
}

void ApplicationCommands::hideWindows()
{
    const bool canReturn = hasStatusItem();
    for (QWidget *each : QApplication::topLevelWidgets()) {
        if (!each->isVisible() || !each->isWindow() || each->windowType() == Qt::Popup) continue;
        if (canReturn)
            each->hide();
        else
            each->showMinimized();
    }
}

void ApplicationCommands::showAbout()
{
    for (QWidget *each : QApplication::topLevelWidgets())
        if (auto *about = qobject_cast<AboutWindow *>(each)) return about->activateWindow();
    (new AboutWindow{QApplication::activeWindow()})->show();
}

void ApplicationCommands::signOut()
{
    if (!mayLoseUnsavedTexts(KWLocalizedString("Sign Out Without Saving"))) return;
    if (const Result<void> done = m_account.signOut(); !done) Q_EMIT failed(done.error().sentence);
}
