#include "model/settings/KWUserDefaults.h"

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
