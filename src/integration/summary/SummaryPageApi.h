#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/CXClock.h"
#include "integration/bridge/JsApiHandleObject.h"
#include "integration/summary/SummaryChoice.h"
#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"

#include <QSet>

#include <vector>

class OrvaneKit;

/// What our own page of the summary asks besides JsApiSummary: what there is to choose, and the summary of a
/// choice, which is read and laid out in the background. The choice is kept for the next time. Main thread.
class SummaryPageApi : public JsApiHandleObject {
    Q_OBJECT

public:
    using HiddenTasks = std::function<QSet<QString>()>;

    /// The kit and the clock outlive it. What waits to be deleted is hidden.
    SummaryPageApi(OrvaneKit &kit, CXClock &clock, HiddenTasks hiddenTasks, QObject *parent = nullptr);

    /// The page offers to insert its text.
    void setCanInsert(bool canInsert) { m_canInsert = canInsert; }
    /// The beginning of the text that a person has changed and not taken along; empty where there is none.
    const QString &unsavedText() const { return m_unsavedText; }

public Q_SLOTS: // named by pages
    /// A JSON object: "texts" (the words of the page, by their keys), "choice" (see SummaryChoice) and
    /// "canInsert".
    QString openSummary(const QString &unused);
    /// What there is to choose now: a JSON array of {"id", "name"}.
    QString summaryLists(const QString &unused);
    /// `choice` is a JSON object, see SummaryChoice; answers nothing, and later summaryRead() for the last
    /// one that was asked for. What is no JSON object is not answered.
    QString requestSummary(const QString &choice);
    /// Answers nothing, and later previewMade(), once for each time.
    QString requestPreview(const QString &markdown);
    /// See unsavedText().
    QString tellUnsaved(const QString &beginning);

Q_SIGNALS:
    /// A JSON object: the texts "title", "markdown" and "html", and "isShortened", see SummaryChoice; or one
    /// with the sentence "error".
    void summaryRead(const QString &summary);
    /// SummaryDocument::htmlOfMarkdown(); a text of more than 3,000 lines or 200,000 characters as it stands.
    void previewMade(const QString &html);
    /// Another answer would come now: what it tells of has changed, or the day has. The text is empty.
    void summaryChanged(const QString &unused);

private:
    void read(const SummaryChoice &choice);
    void finish(const QString &page, const Result<void> &done);
    void tellChange();

    OrvaneKit &m_kit;
    CXClock &m_clock;
    const HiddenTasks m_hiddenTasks;
    bool m_canInsert = false;
    bool m_isReading = false;
    std::optional<SummaryChoice> m_next; // asked for meanwhile
    KWEventBus::Registration m_registration;
    std::vector<KWNotificationCenter::Observation> m_observations;
    ClockCall m_telling; // of what has changed
    QString m_unsavedText;
};
