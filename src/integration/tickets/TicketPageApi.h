#pragma once

#include "integration/bridge/JsApiHandleObject.h"

class PasteboardPort;

/// What our own page for a report asks besides JsApiTickets. Main thread.
class TicketPageApi : public JsApiHandleObject {
    Q_OBJECT

public:
    /// Outlives it.
    explicit TicketPageApi(PasteboardPort &pasteboard, QObject *parent = nullptr)
        : JsApiHandleObject(parent), m_pasteboard(pasteboard)
    {
    }

public Q_SLOTS: // named by pages
    /// A JSON object with the words of the page, by their keys.
    QString ticketTexts(const QString &unused);
    QString copyReport(const QString &report);

private:
    PasteboardPort &m_pasteboard;
};
