#include "model/store/BackupTitle.h"

#include "corvexkit/time/TimeText.h"
#include "model/settings/KWLocalizedString.h"

#include <QDateTime>
#include <QLocale>

QString titleOf(const StoreBackup &backup)
{
    const QLocale locale;
    const QDateTime time = QDateTime::fromString(TimeText::fromLocalTime(backup.time), Qt::ISODate);
    if (backup.origin == StoreBackup::Origin::Daily)
        return KWLocalizedString("The backup of %1").arg(locale.toString(time.date(), QLocale::LongFormat));
    return KWLocalizedString("The store set aside on %1").arg(locale.toString(time, QLocale::ShortFormat));
}
