#include "views/web/KWSummaryViewController.h"

KWSummaryViewController::KWSummaryViewController(OrvaneKit &kit, const WebServices &services, WebPane &pane,
                                                 const InsertSummary &insert)
    : m_export(pane, services.mail)
    , m_universal([this](const QString &text) { Q_EMIT told(text); })
    , m_summary(m_pasteboard, m_export)
    , m_page(kit)
{
    m_summary.insertSummaryHandler = insert;
    m_page.setCanInsert(bool(insert));
    connect(&m_export, &SummaryExport::told, this, &KWSummaryViewController::told);
    pane.setPage(
        {.name = QStringLiteral("summary"), .handlers = {&m_universal, &m_summary, &m_page}, .openLink = {}},
        services.plugin);
}
