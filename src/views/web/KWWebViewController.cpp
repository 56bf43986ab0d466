#include "views/web/KWWebViewController.h"

#include "model/OrvaneKit.h"
#include "model/exchange/SentLog.h"
#include "model/settings/KWLocalizedString.h"

#include <QApplication>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

// What the page for a report may call, for as long as its window is there.
struct TicketHandlers : QObject {
    TicketHandlers(KWCoreDataManager &toRead, const DataFolders &folders, PageWindow &window)
        : QObject(&window)
        , manager(toRead)
        , universal([&window](const QString &text) { window.showMessage(text); })
        , tickets([this, folders] { return log.isNull() ? logToSend(folders) : log; })
        , page(pasteboard, [this, folders](std::function<void()> done) {
            auto read = std::make_shared<QString>();
            KWCoreDataService{manager}.async_perform(
                [folders, read](ObjectContext &) -> Result<void> {
                    *read = logToSend(folders);
                    return {};
                },
                [self = QPointer{this}, read, done = std::move(done)](const Result<void> &) {
                    if (!self) return;
                    self->log = *read;
                    done();
                });
        })
    {
    }

    KWCoreDataManager &manager;
    QString log; // once it is read
    Pasteboard pasteboard;
    JsApiUniversal universal;
    JsApiTickets tickets;
    TicketPageApi page;
};

} // namespace

void KWWebViewController::showTickets(OrvaneKit &kit, CXClock &clock, const WebServices &services,
                                      QWidget *parent)
{
    for (QWidget *each : QApplication::topLevelWidgets())
        if (each->objectName() == u"ticketsWindow") return each->activateWindow();
    auto *window = new PageWindow{KWLocalizedString("Report a Problem"), clock, parent};
    window->setObjectName(u"ticketsWindow"_s);
    auto *handlers = new TicketHandlers{kit.manager(), kit.folders(), *window};
    window->pane().setPage({.name = u"tickets"_s,
                            .handlers = {&handlers->universal, &handlers->tickets, &handlers->page},
                            .openLink = {}},
                           services.plugin);
    window->show();
}

void KWWebViewController::chooseSummary(OrvaneKit &kit, CXClock &clock, const WebServices &services,
                                        QWidget &window,
                                        const std::function<bool(const QString &markdown)> &insert)
{
    auto *chooser = new PageWindow{KWLocalizedString("Insert Summary"), clock, &window};
    chooser->setWindowModality(Qt::WindowModal);
    const auto insertOnce = [chooser, insert, isDone = false](const QString &markdown) mutable {
        if (isDone) return;
        isDone = insert(markdown);
        if (!isDone)
            return chooser->showMessage(KWLocalizedString(
                "Another task is shown now, or its text may not be changed. Copy the summary instead."));
        // From the event loop: the page that asked for it goes with the window.
        QMetaObject::invokeMethod(chooser, &QWidget::close, Qt::QueuedConnection);
    };
    auto *summary = new KWSummaryViewController{kit, clock, services, chooser->pane(), insertOnce};
    summary->setParent(chooser);
    QObject::connect(summary, &KWSummaryViewController::told, chooser, &PageWindow::showMessage);
    chooser->show();
}
