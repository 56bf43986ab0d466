#include "views/web/KWSummaryViewController.h"

#include "model/OrvaneKit.h"
#include "model/settings/KWLocalizedString.h"

#include <QDesktopServices>
#include <QPointer>

KWSummaryViewController::KWSummaryViewController(OrvaneKit &kit, CXClock &clock, const WebServices &services,
                                                 WebPane &pane, const InsertSummary &insert)
    : m_export(pane, services.mail, clock)
    , m_universal([this](const QString &text) { Q_EMIT told(text); })
    , m_summary(m_pasteboard, m_export)
    , m_page(kit, clock, services.hiddenTasks)
{
    m_summary.insertSummaryHandler = insert;
    m_page.setCanInsert(bool(insert));
    connect(&m_export, &SummaryExport::told, this, &KWSummaryViewController::told);
    pane.setUnsavedTexts([self = QPointer{this}] {
        const bool isThere = self && !self->m_page.unsavedText().isEmpty();
        return isThere ? QStringList{self->m_page.unsavedText()} : QStringList{};
    });
    pane.setPage({.name = QStringLiteral("summary"),
                  .handlers = {&m_universal, &m_summary, &m_page},
                  .openLink =
                      [this, open = services.openOwnLink, isForTask = bool(insert)](const QUrl &url) {
                          if (url.scheme() != u"orvane")
                              QDesktopServices::openUrl(url);
                          else if (isForTask)
                              Q_EMIT told(KWLocalizedString(
                                  "This link leads to another task. Close this window to follow it."));
                          else
                              open(url.toString());
                      }},
                 services.plugin);
}
