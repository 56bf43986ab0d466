#pragma once

#include "views/menu/MainMenu.h"

class KWAccountManager;

/// What the commands of the main menu do with the program as a whole. Main thread.
class ApplicationCommands : public QObject {
    Q_OBJECT

public:
    ApplicationCommands(MainMenu &menu, KWAccountManager &account);

    /// Where windows go that are hidden: to the item in the status area, which brings them back, or where
    /// there is none to the task bar.
    std::function<bool()> hasStatusItem = [] { return false; };

Q_SIGNALS:
    /// Signing out was asked for and could not be done.
    void failed(const QString &sentence);

private:
    void hideWindows();
    void showAbout();
    void signOut();

    KWAccountManager &m_account;
};
