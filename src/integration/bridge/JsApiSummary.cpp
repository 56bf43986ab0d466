#include "integration/bridge/JsApiSummary.h"

#include "integration/bridge/BridgePorts.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

QString JsApiSummary::insertSummary(const QString &markdown)
{
    if (insertSummaryHandler) insertSummaryHandler(markdown);
    return {};
}

QString JsApiSummary::copyMarkdown(const QString &markdown)
{
    m_pasteboard.setPlainText(markdown);
    return {};
}

QString JsApiSummary::copyPlainText(const QString &markdown) { return copyMarkdown(markdown); }

QString JsApiSummary::copyRichText(const QString &html)
{
    m_pasteboard.setHtml(html);
    return {};
}

QString JsApiSummary::exportPdf(const QString &)
{
    m_exporter.exportPdf();
    return {};
}

QString JsApiSummary::exportPNG(const QString &) { return m_exporter.exportPNG(); }

QString JsApiSummary::exportMail(const QString &message)
{
    const QJsonDocument document = QJsonDocument::fromJson(message.toUtf8());
    if (!document.isObject()) return {};
    const QJsonObject mail = document.object();
    return m_exporter.exportMail(mail[u"title"_s].toString(), mail[u"summary"_s].toString());
}
