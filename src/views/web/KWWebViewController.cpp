#include "views/web/KWWebViewController.h"

#include "model/OrvaneKit.h"
#include "model/exchange/SentLog.h"
#include "model/settings/KWLocalizedString.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

// What the page for a report may call, for as long as its window is there.
struct TicketHandlers : QObject {
    TicketHandlers(const DataFolders &folders, PageWindow &window)
        : QObject(&window)
        , universal([&window](const QString &text) { window.showMessage(text); })
        , tickets([folders] { return logToSend(folders); })
        , page(pasteboard)
    {
    }

    Pasteboard pasteboard;
    JsApiUniversal universal;
    JsApiTickets tickets;
    TicketPageApi page;
};

} // namespace

void KWWebViewController::showTickets(OrvaneKit &kit, CXClock &clock, const WebServices &services)
{
    for (QWidget *each : QApplication::topLevelWidgets())
        if (each->objectName() == u"ticketsWindow") return each->activateWindow();
    auto *window = new PageWindow{KWLocalizedString("Report a Problem"), clock, QApplication::activeWindow()};
    window->setObjectName(u"ticketsWindow"_s);
    auto *handlers = new TicketHandlers{kit.folders(), *window};
    window->pane().setPage({.name = u"tickets"_s,
                            .handlers = {&handlers->universal, &handlers->tickets, &handlers->page},
                            .openLink = {}},
                           services.plugin);
    window->show();
}

void KWWebViewController::chooseSummary(OrvaneKit &kit, CXClock &clock, const WebServices &services,
                                        QWidget &window, const KWSummaryViewController::InsertSummary &insert)
{
    auto *chooser = new PageWindow{KWLocalizedString("Insert Summary"), clock, &window};
    chooser->setWindowModality(Qt::WindowModal);
    // From the event loop: the page that asked for it goes with the window.
    const auto insertAndClose = [chooser, insert](const QString &markdown) {
        insert(markdown);
        QMetaObject::invokeMethod(chooser, &QWidget::close, Qt::QueuedConnection);
    };
    auto *summary = new KWSummaryViewController{kit, services, chooser->pane(), insertAndClose};
    summary->setParent(chooser);
    QObject::connect(summary, &KWSummaryViewController::told, chooser, &PageWindow::showMessage);
    chooser->show();
}
