#include "app/DataCare.h"

#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/exchange/ExchangeFile.h"
#include "model/settings/KWLocalizedString.h"

QString DataCare::folder() const { return m_kit.folders().data; }

QList<StoreBackup> DataCare::backups() const { return StoreBackups{m_kit.folders()}.list(); }

Result<void> DataCare::restore(const StoreBackup &backup)
{
    m_kit.defaults().set(Settings::restoreAtStart, backup.path);
    const Result<void> noted = m_kit.defaults().save();
    if (noted)
        m_relaunch.cx_relunch();
    else
        m_kit.defaults().remove(Settings::restoreAtStart);
    return noted;
}

Result<void> DataCare::restoreWhatWasAsked(const DataFolders &folders, KWUserDefaults &defaults,
                                           const CXClock &clock)
{
    const QString file = defaults.value(Settings::restoreAtStart);
    if (file.isEmpty()) return {};
    // Once, whatever comes of it.
    defaults.remove(Settings::restoreAtStart);
    defaults.synchronise();
    const Result<QString> restored = restoreStore(file, folders, clock);
    if (!restored) return restored.error();
    return {};
}

Result<void> DataCare::exportTo(const QString &file) { return exportToFile(file, m_kit.store()); }

Result<QString> DataCare::importFrom(const QString &file)
{
    const Result<ImportSummary> taken = importFromFile(file, m_kit.store());
    if (!taken) return taken.error();
    m_kit.manager().refreshAll();
    m_kit.account().refreshCurrentUser();
    m_kit.center().post(KWDataDidChangeOutsideMainAppNotification);
    return KWLocalizedString("%1 records added, %2 replaced, %3 left as they were.")
        .arg(taken->added)
        .arg(taken->replaced)
        .arg(taken->kept);
}
