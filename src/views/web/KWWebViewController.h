#pragma once

#include "integration/bridge/JsApiTickets.h"
#include "integration/bridge/JsApiUniversal.h"
#include "integration/tickets/TicketPageApi.h"
#include "views/web/KWSummaryViewController.h"
#include "views/web/PageWindow.h"

/// A page in a window of its own. Main thread.
namespace KWWebViewController {

/// The page for a report to the makers; the one that is open comes to the front.
void showTickets(OrvaneKit &kit, CXClock &clock, const WebServices &services);

/// The summary, over `window`, with a button that hands its text to `insert` and closes.
void chooseSummary(OrvaneKit &kit, CXClock &clock, const WebServices &services, QWidget &window,
                   const KWSummaryViewController::InsertSummary &insert);

} // namespace KWWebViewController
