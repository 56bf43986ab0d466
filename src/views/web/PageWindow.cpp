#include "views/web/PageWindow.h"

#include "views/theme/Metrics.h"
#include "views/toast/Toast.h"
#include "views/web/WebPane.h"

#include <QScreen>
#include <QVBoxLayout>

using namespace std::chrono_literals;

namespace {

constexpr auto messageTime = 5s;
constexpr QSize usualSize{720, 640};

} // namespace

PageWindow::PageWindow(const QString &title, CXClock &clock, QWidget *parent)
    : QDialog(parent), m_clock(clock), m_pane(new WebPane), m_toast(new Toast{*this})
{
    setObjectName(QStringLiteral("pageWindow"));
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    column->addWidget(m_pane);
    resize((usualSize * Metrics::textScale()).boundedTo(screen()->availableSize()));
}

void PageWindow::showMessage(const QString &message)
{
    m_toast->showMessage(message);
    m_toastEnd = m_clock.callAfter(messageTime, [this] { m_toast->dismiss(); });
}
