#pragma once

#include "integration/bridge/JsApiHandleObject.h"

#include <functional>

class PasteboardPort;

/// What our own page for a report asks besides JsApiTickets. Main thread.
class TicketPageApi : public JsApiHandleObject {
    Q_OBJECT

public:
    /// Reads the log in the background, so that JsApiTickets has it at hand, and calls `done`.
    using PrepareLog = std::function<void(std::function<void()> done)>;

    /// The pasteboard outlives it.
    TicketPageApi(PasteboardPort &pasteboard, PrepareLog prepareLog, QObject *parent = nullptr)
        : JsApiHandleObject(parent), m_pasteboard(pasteboard), m_prepareLog(std::move(prepareLog))
    {
    }

public Q_SLOTS: // named by pages
    /// A JSON object with the words of the page, by their keys.
    QString ticketTexts(const QString &unused);
    QString copyReport(const QString &report);
    /// Answers nothing, and later logPrepared(); once for as long as the page is open.
    QString prepareLog(const QString &unused);

Q_SIGNALS:
    void logPrepared(const QString &unused);

private:
    PasteboardPort &m_pasteboard;
    PrepareLog m_prepareLog;
};
