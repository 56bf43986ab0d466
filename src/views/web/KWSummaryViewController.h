#pragma once

#include "integration/bridge/JsApiSummary.h"
#include "integration/bridge/JsApiUniversal.h"
#include "integration/summary/SummaryPageApi.h"
#include "views/web/Pasteboard.h"
#include "views/web/SummaryExport.h"
#include "views/web/WebPane.h"

class OrvaneKit;

/// What pages need besides the store; it outlives them.
struct WebServices {
    WebPane::Plugin plugin;
    MailPort &mail;
    SummaryPageApi::HiddenTasks hiddenTasks;
    std::function<void(const QString &)> openOwnLink; ///< to a task, such as "orvane://task/…"
};

/// The page of the summary at work in its pane. Main thread.
class KWSummaryViewController : public QObject {
    Q_OBJECT

public:
    using InsertSummary = std::function<void(const QString &markdown)>;

    /// All outlive it. With `insert` the page offers to put its text where it was opened
    /// from.
    KWSummaryViewController(OrvaneKit &kit, CXClock &clock, const WebServices &services, WebPane &pane,
                            const InsertSummary &insert = {});

Q_SIGNALS:
    /// A sentence for the person.
    void told(const QString &sentence);

private:
    Pasteboard m_pasteboard;
    SummaryExport m_export;
    JsApiUniversal m_universal;
    JsApiSummary m_summary;
    SummaryPageApi m_page;
};
