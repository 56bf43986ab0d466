#include "views/web/PageWindow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/alerts/UnsavedTextAlert.h"
#include "views/theme/Metrics.h"
#include "views/toast/Toast.h"
#include "views/web/WebPane.h"

#include <QCloseEvent>
#include <QPointer>
#include <QScreen>
#include <QVBoxLayout>

using namespace std::chrono_literals;

namespace {

constexpr auto messageTime = 5s;
constexpr QSize usualSize{720, 640};

} // namespace

PageWindow::PageWindow(const QString &title, CXClock &clock, QWidget *parent)
    : QDialog(parent)
    , m_clock(clock)
    , m_pane(new WebPane)
    , m_toast(new Toast{*this})
    // From the event loop: the page that asks for it goes with the window.
    , m_api([this] {
        QMetaObject::invokeMethod(
            this,
            [this] {
                const QPointer self{this};
                if (mayGo() && self) close();
            },
            Qt::QueuedConnection);
    })
{
    setObjectName(QStringLiteral("pageWindow"));
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    column->addWidget(m_pane);
    m_pane->addHandler(m_api);
    resize((usualSize * Metrics::textScale()).boundedTo(screen()->availableSize()));
}

void PageWindow::showMessage(const QString &message)
{
    m_toast->showMessage(message);
    m_toastEnd = m_clock.callAfter(messageTime, [this] { m_toast->dismiss(); });
}

bool PageWindow::mayGo()
{
    if (m_isAsking) return false;
    m_isAsking = true;
    const QPointer self{this};
    const bool may = mayLoseTexts(m_pane->unsavedTexts(), KWLocalizedString("Close Without Saving"), this);
    if (self) m_isAsking = false;
    return may;
}

// While the program ends it was asked about all texts at once.
void PageWindow::closeEvent(QCloseEvent *event)
{
    const QPointer self{this};
    if (event->spontaneous() && !mayGo()) return event->ignore();
    if (self) QDialog::closeEvent(event);
}
