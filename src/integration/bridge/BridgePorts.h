#pragma once

#include <QString>

/// The clipboard of the desktop. What was there goes.
class PasteboardPort {
public:
    virtual ~PasteboardPort() = default;

    virtual void setPlainText(const QString &text) = 0;
    /// As styled text, with its plain text beside it for programs that take no other.
    virtual void setHtml(const QString &html) = 0;
};

/// Takes the summary out of the program. Each answers a text for the page at once, and may ask the person
/// where to afterwards.
class SummaryExporterPort {
public:
    virtual ~SummaryExporterPort() = default;

    /// The page as it is, on paper.
    virtual void exportPdf() = 0;
    /// The page as it is, as a picture; answers the name that the file is offered under.
    virtual QString exportPNG() = 0;
    /// Opens a mail to be written; answers what it could not do, or nothing.
    virtual QString exportMail(const QString &title, const QString &summary) = 0;
};
