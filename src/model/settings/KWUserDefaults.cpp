#include "model/settings/KWUserDefaults.h"

#include "model/settings/KWLocalizedString.h"

KWUserDefaults::KWUserDefaults(const QString &folder)
    : m_standard(folder + QStringLiteral("/standard.ini"), QSettings::IniFormat)
    , m_group(folder + QStringLiteral("/group.ini"), QSettings::IniFormat)
{
}

void KWUserDefaults::synchronise()
{
    m_standard.sync();
    m_group.sync();
}

Result<void> KWUserDefaults::save()
{
    synchronise();
    for (const QSettings *each : {&m_standard, &m_group}) {
        // Keeps its first error for good; another one of the same file has none yet.
        QSettings witness{each->fileName(), QSettings::IniFormat};
        witness.sync();
        if (witness.status() != QSettings::NoError)
            return Error{KWLocalizedString("“%1” cannot be written.").arg(each->fileName())};
    }
    return {};
}
