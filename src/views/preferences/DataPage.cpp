#include "views/preferences/DataPage.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"
#include "views/alerts/Alert.h"
#include "views/menu/MainMenu.h"
#include "views/preferences/NameDelegate.h"
#include "views/theme/Metrics.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QListWidget>
#include <QPushButton>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr int backupsHeight = 132;

QString exportFilter() { return KWLocalizedString("Orvane data (*.json)"); }

QString wordsOf(const StoreBackup &backup)
{
    const Day day = std::chrono::floor<std::chrono::days>(backup.time);
    const QString date = DayText::dayMonthAndYear(day, QLocale{});
    if (backup.origin == StoreBackup::Origin::Daily) return date;
    return KWLocalizedString("%1, set aside when another took its place").arg(date);
}

} // namespace

DataPage::DataPage(Preferences &preferences, DataCare &care, MainMenu &menu)
    : PreferencesPage("dataPage", KWLocalizedString("Data"), preferences)
    , m_care(care)
    , m_backups(new QListWidget)
    , m_restore(new QPushButton{KWLocalizedString("Restore…")})
{
    const QString folder = QDir::toNativeSeparators(m_care.folder());
    connect(&addButton("openFolder", KWLocalizedString("Folder"), KWLocalizedString("Open"), folder),
            &QPushButton::clicked, this,
            [this] { QDesktopServices::openUrl(QUrl::fromLocalFile(m_care.folder())); });
    addBackups();
    addHeading(KWLocalizedString("Everything in one file"));
    connect(
        &addButton("exportData", KWLocalizedString("Export"), KWLocalizedString("Export…"),
                   KWLocalizedString("Writes all tasks, lists and settings of the account as text (JSON).")),
        &QPushButton::clicked, this, [this] { exportAll(); });
    connect(
        &addButton("importData", KWLocalizedString("Import"), KWLocalizedString("Import…"),
                   KWLocalizedString("Adds what such a file holds; of two versions the later one stays.")),
        &QPushButton::clicked, this, [this] { importAll(); });
    addHeading(KWLocalizedString("Account"));
    connect(&addButton("signOut", KWLocalizedString("Sign out"), KWLocalizedString("Sign Out"),
                       KWLocalizedString("Your tasks stay on this computer.")),
            &QPushButton::clicked, &menu.action(MenuCommand::SignOut), &QAction::trigger);
    endRows();
}

QPushButton &DataPage::addButton(const char *name, const QString &label, const QString &text,
                                 const QString &hint)
{
    auto *button = new QPushButton{text};
    addRow(name, label, *button, hint);
    return *button;
}

void DataPage::addBackups()
{
    addHeading(KWLocalizedString("Backups"));
    m_backups->setObjectName(u"backups"_s);
    m_backups->setAccessibleName(KWLocalizedString("Backups"));
    m_backups->setFixedHeight(Metrics::scaled(backupsHeight));
    for (const StoreBackup &each : m_care.backups()) {
        auto *item = new QListWidgetItem{wordsOf(each), m_backups};
        item->setData(Qt::UserRole, each.path);
    }
    m_backups->setFrameShape(QFrame::NoFrame);
    m_backups->setItemDelegate(new NameDelegate{m_backups});
    m_backups->setVisible(m_backups->count() > 0);
    addWide(*m_backups);
    m_backups->setCurrentRow(0); // the newest
    m_restore->setEnabled(m_backups->count() > 0);
    connect(m_restore, &QPushButton::clicked, this, [this] { restoreSelected(); });
    addRow("restoreBackup",
           m_backups->count() == 0 ? KWLocalizedString("There is no backup yet")
                                   : KWLocalizedString("Bring the selected backup back"),
           *m_restore, KWLocalizedString("One is made each day; seven are kept."));
}

void DataPage::restoreSelected()
{
    const QListWidgetItem *item = m_backups->currentItem();
    if (!item) return;
    const QStringList buttons{KWLocalizedString("Restore and Restart"), KWLocalizedString("Cancel")};
    const int answer = Alert::run(
        {.message = KWLocalizedString("Bring back the data of %1?").arg(item->text()),
         .text = KWLocalizedString("Orvane starts anew with it. The data of now is kept aside, and can be "
                                   "brought back in the same way."),
         .buttons = buttons,
         .defaultButton = 1},
        window());
    if (answer != 0) return;
    for (const StoreBackup &each : m_care.backups())
        if (each.path == item->data(Qt::UserRole).toString()) return report(m_care.restore(each), [] {});
    Q_EMIT failed(KWLocalizedString("This backup is not there any more."));
}

void DataPage::exportAll()
{
    const QString file = QFileDialog::getSaveFileName(
        window(), KWLocalizedString("Export"), QDir::home().filePath(u"orvane.json"_s), exportFilter());
    if (file.isEmpty()) return;
    const Result<void> written = m_care.exportTo(file);
    report(written, [] {});
    if (written) Q_EMIT done(KWLocalizedString("Exported to %1").arg(QDir::toNativeSeparators(file)));
}

void DataPage::importAll()
{
    const QString file =
        QFileDialog::getOpenFileName(window(), KWLocalizedString("Import"), QDir::homePath(), exportFilter());
    if (file.isEmpty()) return;
    if (const Result<QString> taken = m_care.importFrom(file))
        Q_EMIT done(*taken);
    else
        Q_EMIT failed(taken.error().sentence);
}
