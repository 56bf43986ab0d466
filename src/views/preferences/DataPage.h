#pragma once

#include "app/DataCare.h"
#include "views/preferences/PreferencesPage.h"

class MainMenu;
class QListWidget;
class QPushButton;

/// Where the data is, its backups, export and import, and signing out.
class DataPage : public PreferencesPage {
    Q_OBJECT

public:
    DataPage(Preferences &preferences, DataCare &care, MainMenu &menu);

Q_SIGNALS:
    /// Something was done that is to be told.
    void done(const QString &sentence);

private:
    QPushButton &addButton(const char *name, const QString &label, const QString &text, const QString &hint);
    void addBackups();
    void restoreSelected();
    void exportAll();
    void importAll();

    DataCare &m_care;
    QListWidget *m_backups;
    QPushButton *m_restore;
};
