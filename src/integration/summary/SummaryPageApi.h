#pragma once

#include "integration/bridge/JsApiHandleObject.h"
#include "model/events/KWNotificationCenter.h"

class OrvaneKit;

/// What our own page of the summary asks besides JsApiSummary: what there is to choose, and the summary of a
/// choice, which is read in the background. The choice is kept for the next time. Main thread.
class SummaryPageApi : public JsApiHandleObject {
    Q_OBJECT

public:
    /// The kit outlives it.
    explicit SummaryPageApi(OrvaneKit &kit, QObject *parent = nullptr);

    /// The page offers to insert its text.
    void setCanInsert(bool canInsert) { m_canInsert = canInsert; }

public Q_SLOTS: // named by pages
    /// A JSON object: "texts" (the words of the page, by their keys), "lists" (an array of {"id", "name"}),
    /// "choice" (see SummaryChoice) and "canInsert".
    QString openSummary(const QString &unused);
    /// `choice` is a JSON object, see SummaryChoice; answers nothing, and later summaryRead() for the last
    /// one that was asked for. What is no JSON object is not answered.
    QString requestSummary(const QString &choice);
    /// SummaryDocument::htmlOfMarkdown()
    QString htmlOfMarkdown(const QString &markdown);

Q_SIGNALS:
    /// A JSON object of texts: "title", "markdown" and "html"; or one with the sentence "error".
    void summaryRead(const QString &summary);

private:
    OrvaneKit &m_kit;
    bool m_canInsert = false;
    int m_requests = 0;
};
