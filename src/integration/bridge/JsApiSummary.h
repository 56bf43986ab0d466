#pragma once

#include "integration/bridge/JsApiHandleObject.h"

#include <functional>

class PasteboardPort;
class SummaryExporterPort;

/// What the page of the summary may call.
class JsApiSummary : public JsApiHandleObject {
    Q_OBJECT

public:
    /// Both outlive it.
    JsApiSummary(PasteboardPort &pasteboard, SummaryExporterPort &exporter, QObject *parent = nullptr)
        : JsApiHandleObject(parent), m_pasteboard(pasteboard), m_exporter(exporter)
    {
    }

    /// Takes the summary into the text that it was opened from. None where it was opened by itself.
    std::function<void(const QString &)> insertSummaryHandler;

public Q_SLOTS: // named by pages
    QString insertSummary(const QString &markdown);
    QString copyMarkdown(const QString &markdown);
    /// The same as copyMarkdown(), its marks included.
    QString copyPlainText(const QString &markdown);
    /// `html` is a document.
    QString copyRichText(const QString &html);
    QString exportPdf(const QString &unused);
    QString exportPNG(const QString &unused);
    /// `message` is a JSON object of the texts "title" and "summary".
    QString exportMail(const QString &message);

private:
    PasteboardPort &m_pasteboard;
    SummaryExporterPort &m_exporter;
};
