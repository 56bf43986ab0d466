#include "views/focus/FocusWindow.h"

#include "model/settings/KWLocalizedString.h"
#include "model/settings/KWUserDefaults.h"
#include "views/controls/IconButton.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/PopupFrame.h"
#include "views/focus/FocusPanel.h"
#include "views/focus/FocusPresenter.h"
#include "views/theme/Metrics.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize focusWindowSize{236, 280};

} // namespace

FocusWindow::FocusWindow(FocusPresenter &presenter, KWUserDefaults &defaults)
    : FocusToolWindow(presenter), m_defaults(defaults)
{
    setObjectName(u"focusWindow"_s);
    setAccessibleName(KWLocalizedString("Focus Window"));
    auto *close = new IconButton{Icon::Close, KWLocalizedString("Close")};
    close->setObjectName(u"closeFocusWindow"_s);
    head().addWidget(
        makePlainLabel(KWLocalizedString("Focus"), Fonts::Role::Secondary, QPalette::PlaceholderText), 1);
    head().addWidget(close);
    connect(close, &QAbstractButton::clicked, this, &QWidget::hide);
    const QSize wanted{Metrics::scaled(focusWindowSize.width()), Metrics::scaled(focusWindowSize.height())};
    resize(wanted.expandedTo(minimumSizeHint()));
    restorePlace();
}

// A screen that is not there any more leaves it within those that are.
void FocusWindow::restorePlace()
{
    const QSize wanted = size();
    const bool isKnown = restoreGeometry(m_defaults.value(Settings::focusWindowGeometry));
    resize(wanted);
    const QRect bounds = screen()->availableGeometry();
    const QPoint corner{bounds.right() - width() - Metrics::margin, bounds.top() + Metrics::margin};
    move(PopupFrame::within(bounds, {isKnown ? pos() : corner, size()}).topLeft());
}

void FocusWindow::bringUp()
{
    panel().setMode(presenter().mode());
    show();
    raise();
    activateWindow();
    panel().setFocus(Qt::OtherFocusReason);
}

void FocusWindow::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) return;
    // Some desktops let nobody but themselves move a window.
    if (windowHandle() && windowHandle()->startSystemMove()) return;
    m_grip = event->globalPosition().toPoint() - pos();
}

void FocusWindow::mouseMoveEvent(QMouseEvent *event)
{
    if (m_grip) move(event->globalPosition().toPoint() - *m_grip);
}

void FocusWindow::mouseReleaseEvent(QMouseEvent *) { m_grip.reset(); }

void FocusWindow::hideEvent(QHideEvent *event)
{
    m_defaults.set(Settings::focusWindowGeometry, saveGeometry());
    FocusToolWindow::hideEvent(event);
}
