#include "integration/tickets/TicketPageApi.h"

#include "integration/bridge/BridgePorts.h"
#include "model/settings/KWLocalizedString.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

QString TicketPageApi::ticketTexts(const QString &)
{
    const QJsonObject texts{
        {u"heading"_s, KWLocalizedString("Report a Problem")},
        {u"explanation"_s,
         KWLocalizedString("This is all that a report holds: the program and the system, and the log without "
                           "titles and notes. Nothing is sent; copy it where you report the problem.")},
        {u"language"_s, KWLocalizedString("en")},
        {u"copy"_s, KWLocalizedString("Copy")},
        {u"close"_s, KWLocalizedString("Close")},
        {u"copied"_s, KWLocalizedString("The report is on the clipboard.")}};
    return QString::fromUtf8(QJsonDocument{texts}.toJson(QJsonDocument::Compact));
}

QString TicketPageApi::copyReport(const QString &report)
{
    m_pasteboard.setPlainText(report);
    return {};
}

QString TicketPageApi::prepareLog(const QString &)
{
    if (const PrepareLog prepare = std::exchange(m_prepareLog, nullptr))
        prepare([this] { Q_EMIT logPrepared({}); });
    return {};
}
