#include "views/alerts/BackupChooser.h"

#include "model/settings/KWLocalizedString.h"
#include "model/store/BackupTitle.h"
#include "views/wording/CalendarDay.h"

#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// A daily backup tells its day alone; its file tells when on that day it was made.
QString titleWithTime(const StoreBackup &backup)
{
    if (backup.origin != StoreBackup::Origin::Daily) return titleOf(backup);
    const QDateTime made = QFileInfo{backup.path}.lastModified();
    const Day day = std::chrono::floor<std::chrono::days>(backup.time);
    if (made.date() != dateOf(day)) return titleOf(backup);
    return titleOf(backup) + u", "_s + QLocale{}.toString(made.time(), QLocale::ShortFormat);
}

QListWidget *listOf(const QList<StoreBackup> &backups)
{
    auto *list = new QListWidget;
    list->setObjectName(u"backups"_s);
    list->setAccessibleName(KWLocalizedString("Backups"));
    for (const StoreBackup &each : backups)
        list->addItem(titleWithTime(each));
    list->setCurrentRow(0);
    const int besideTheRows = 2 * list->frameWidth() + list->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    list->setMinimumWidth(list->sizeHintForColumn(0) + besideTheRows);
    return list;
}

} // namespace

std::optional<StoreBackup> chooseBackup(const QList<StoreBackup> &backups, QWidget *parent)
{
    QDialog dialog{parent};
    dialog.setObjectName(u"backupChooser"_s);
    dialog.setWindowTitle(u"Orvane"_s);
    auto *text = new QLabel{
        KWLocalizedString("Which backup is to take the place of your tasks? Those you have now are kept, "
                          "and stand in this list afterwards.")};
    text->setWordWrap(true);
    QListWidget *list = listOf(backups);
    auto *buttons = new QDialogButtonBox;
    QPushButton *restore = buttons->addButton(KWLocalizedString("Restore"), QDialogButtonBox::AcceptRole);
    restore->setObjectName(u"restore"_s);
    restore->setEnabled(!backups.isEmpty());
    buttons->addButton(KWLocalizedString("Back"), QDialogButtonBox::RejectRole)->setObjectName(u"back"_s);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);

    auto *layout = new QVBoxLayout{&dialog};
    layout->addWidget(text);
    layout->addWidget(list);
    layout->addWidget(buttons);
    list->setFocus();
    if (dialog.exec() != QDialog::Accepted || list->currentRow() < 0) return std::nullopt;
    return backups.at(list->currentRow());
}
