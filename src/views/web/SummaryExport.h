#pragma once

#include "integration/bridge/BridgePorts.h"

#include <QObject>

class MailPort;
class WebPane;

/// Takes a shown summary out of the program: the person is asked for a place, and told what came of it. One
/// at a time: what is asked for meanwhile is passed over. Main thread.
class SummaryExport final : public QObject, public SummaryExporterPort {
    Q_OBJECT

public:
    /// Both outlive it.
    SummaryExport(WebPane &pane, MailPort &mail) : m_pane(pane), m_mail(mail) {}

    void exportPdf() override;
    QString exportPNG() override;
    QString exportMail(const QString &title, const QString &summary) override;

Q_SIGNALS:
    /// A sentence for the person.
    void told(const QString &sentence);

private:
    void askWhere(const QString &name, const QString &kind, std::function<bool(QIODevice &)> write);

    WebPane &m_pane;
    MailPort &m_mail;
    bool m_isBusy = false;
};
