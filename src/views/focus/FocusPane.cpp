#include "views/focus/FocusPane.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/IconButton.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/ScrollColumn.h"
#include "views/controls/SegmentedControl.h"
#include "views/controls/TabOrder.h"
#include "views/focus/FocusPanel.h"
#include "views/focus/FocusPresenter.h"
#include "views/theme/Metrics.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int aboveTarget = 32;

} // namespace

FocusPane::FocusPane(QWidget *parent)
    : QWidget(parent)
    , m_title(makePlainLabel(KWLocalizedString("Focus"), Fonts::Role::PageTitle))
    , m_modes(new SegmentedControl{{KWLocalizedString("Pomo"), KWLocalizedString("Stopwatch")}})
    , m_records(new IconButton{Icon::Summary, KWLocalizedString("Records and Statistics")})
    , m_window(new IconButton{Icon::SmallWindow, KWLocalizedString("Focus Window")})
    , m_settings(new IconButton{Icon::Settings, KWLocalizedString("Focus Preferences")})
    , m_buttons(new QWidget)
    , m_head(new QGridLayout)
    , m_column(new QVBoxLayout{this})
{
    setObjectName(u"focusPane"_s);
    makeHead();
    m_column->setContentsMargins(0, Metrics::gap + Metrics::grid, 0, 0);
    m_column->setSpacing(Metrics::grid);
    m_column->addLayout(m_head);
}

void FocusPane::makeHead()
{
    m_title->setWordWrap(false);
    m_modes->setObjectName(u"focusModes"_s);
    m_records->setObjectName(u"focusRecordsButton"_s);
    m_window->setObjectName(u"focusWindowButton"_s);
    m_settings->setObjectName(u"focusSettings"_s);
    m_records->hide();
    auto *row = new QHBoxLayout{m_buttons};
    row->setContentsMargins({});
    row->setSpacing(Metrics::grid);
    row->addStretch(1);
    for (IconButton *each : {m_records, m_window, m_settings})
        row->addWidget(each);
    m_head->setContentsMargins(Metrics::margin, 0, Metrics::margin, 0);
    m_head->setColumnStretch(0, 1);
    m_head->setColumnStretch(2, 1);
    m_head->addWidget(m_title, 0, 0, Qt::AlignLeft | Qt::AlignVCenter); // its side is that of the layout
    m_head->addWidget(m_modes, 0, 1);
    m_head->addWidget(m_buttons, 0, 2);
    connect(m_modes, &SegmentedControl::picked, this,
            [this](int mode) { showMode(mode == 1 ? KWFocusTypeStopwatch : KWFocusTypePomo); });
    connect(m_records, &QAbstractButton::clicked, this, &FocusPane::recordsRequested);
    connect(m_window, &QAbstractButton::clicked, this, &FocusPane::windowRequested);
    connect(m_settings, &QAbstractButton::clicked, this, &FocusPane::preferencesRequested);
}

void FocusPane::setPresenter(FocusPresenter &presenter)
{
    m_presenter = &presenter;
    m_panel = new FocusPanel{presenter, FocusRing::Size::Large};
    auto *inside = new QWidget;
    auto *lines = new QVBoxLayout{inside};
    lines->setContentsMargins(Metrics::margin, aboveTarget, Metrics::margin, Metrics::margin);
    lines->addWidget(m_panel);
    lines->addStretch(1);
    m_column->addWidget(new ScrollColumn{inside}, 1);
    setFocusProxy(m_panel);
    connect(m_panel, &FocusPanel::modeChanged, this, &FocusPane::showMode);
    showMode(presenter.mode());
    setTabOrderOf(controlsInOrder(*this));
}

void FocusPane::showMode(KWFocusType mode)
{
    m_modes->choose(mode == KWFocusTypeStopwatch ? 1 : 0);
    m_presenter->chooseMode(mode);
    m_panel->setMode(mode);
}

void FocusPane::setHasSheet(bool hasSheet)
{
    m_records->setVisible(hasSheet);
    arrangeHead();
}

// Large text in a narrow window leaves the choice no room beside the title.
void FocusPane::arrangeHead()
{
    const int side = std::max(m_title->sizeHint().width(), m_buttons->sizeHint().width());
    const int needed = 2 * (side + Metrics::margin + Metrics::gap) + m_modes->sizeHint().width();
    m_head->addWidget(m_modes, needed > width() ? 1 : 0, needed > width() ? 0 : 1);
}

void FocusPane::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrangeHead();
}

void FocusPane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    Q_EMIT shownChanged();
}

void FocusPane::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    Q_EMIT shownChanged();
}

void FocusPane::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat() && m_panel)
        m_panel->performFirst();
    else
        QWidget::keyPressEvent(event);
}
