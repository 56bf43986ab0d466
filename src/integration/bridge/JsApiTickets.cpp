#include "integration/bridge/JsApiTickets.h"

QString JsApiTickets::uploadLog(const QString &)
{
    if (m_read.isNull()) m_read = m_log();
    if (m_read.isNull()) m_read = QLatin1StringView{""};
    return m_read;
}
