#include "views/statusitem/FocusPopover.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/SegmentedControl.h"
#include "views/controls/TextButton.h"
#include "views/focus/FocusPanel.h"
#include "views/focus/FocusPresenter.h"
#include "views/statusitem/PopoverPlace.h"
#include "views/theme/Metrics.h"

#include <QApplication>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize focusPopoverSize{320, 320};

} // namespace

FocusPopover::FocusPopover(FocusPresenter &presenter)
    : FocusToolWindow(presenter)
    , m_modes(new SegmentedControl{{KWLocalizedString("Pomo"), KWLocalizedString("Stopwatch")}})
{
    setObjectName(u"focusPopover"_s);
    setAccessibleName(KWLocalizedString("Focus"));
    m_modes->setObjectName(u"focusPopoverModes"_s);
    auto *today = new TextButton{KWLocalizedString("Today")};
    today->setObjectName(u"showToday"_s);
    today->setAccessibleName(today->text());
    head().addWidget(m_modes);
    head().addStretch(1);
    head().addWidget(today);
    connect(m_modes, &SegmentedControl::picked, this,
            [this](int mode) { showMode(mode == 1 ? KWFocusTypeStopwatch : KWFocusTypePomo); });
    connect(&panel(), &FocusPanel::modeChanged, this, &FocusPopover::showMode);
    connect(today, &QAbstractButton::clicked, this, &FocusPopover::todayRequested);
    const QSize wanted{Metrics::scaled(focusPopoverSize.width()), Metrics::scaled(focusPopoverSize.height())};
    resize(wanted.expandedTo(minimumSizeHint()));
}

void FocusPopover::showMode(KWFocusType mode)
{
    m_modes->choose(mode == KWFocusTypeStopwatch ? 1 : 0);
    panel().setMode(mode);
}

void FocusPopover::popUp(const QRect &anchor)
{
    move(placeOfPopover(anchor, *this));
    show();
    raise();
    activateWindow();
    panel().setFocus(Qt::PopupFocusReason);
}

void FocusPopover::changeEvent(QEvent *event)
{
    FocusToolWindow::changeEvent(event);
    const bool isLeft = event->type() == QEvent::ActivationChange && !isActiveWindow();
    // A popup is part of it, and so is a question.
    if (isLeft && !QApplication::activePopupWidget() && !QApplication::activeModalWidget()) hide();
}
