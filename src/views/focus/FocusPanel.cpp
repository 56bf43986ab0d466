#include "views/focus/FocusPanel.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/ChoicePopup.h"
#include "views/controls/PillButton.h"
#include "views/controls/PlainLabel.h"
#include "views/focus/FocusPresenter.h"
#include "views/focus/FocusTargetButton.h"
#include "views/focus/FocusTargetPopup.h"
#include "views/focus/FocusWording.h"
#include "views/theme/Metrics.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostCommands = 3;

} // namespace

FocusPanel::FocusPanel(FocusPresenter &presenter, FocusRing::Size size, QWidget *parent)
    : QWidget(parent)
    , m_presenter(presenter)
    , m_size(size)
    , m_mode(presenter.mode())
    , m_target(new FocusTargetButton{KWLocalizedString("Choose what to focus on")})
    , m_ring(new FocusRing{size})
    , m_words(makePlainLabel({}, Fonts::Role::Secondary, QPalette::PlaceholderText))
    , m_notice(makePlainLabel({}, Fonts::Role::Secondary, QPalette::PlaceholderText))
{
    setObjectName(u"focusPanel"_s);
    addParts();
    connect(m_target, &QAbstractButton::clicked, this, &FocusPanel::pickTarget);
    connect(&m_presenter, &FocusPresenter::ticked, this, &FocusPanel::tick);
    connect(&m_presenter, &FocusPresenter::changed, this, &FocusPanel::refresh);
    connect(&m_presenter, &FocusPresenter::modeStarted, this, [this](KWFocusType mode) {
        if (mode == m_mode) return;
        setMode(mode);
        Q_EMIT modeChanged(mode);
    });
    refresh();
}

void FocusPanel::addParts()
{
    const bool isLarge = m_size == FocusRing::Size::Large;
    m_notice->setObjectName(u"focusNotice"_s);
    m_words->setObjectName(u"focusWords"_s);
    for (QLabel *each : {m_notice, m_words})
        each->setAlignment(Qt::AlignHCenter);
    m_words->setVisible(!isLarge); // else in the ring
    auto *row = new QHBoxLayout;
    row->setSpacing(isLarge ? Metrics::gap : Metrics::grid * 2);
    row->addStretch(1);
    for (qsizetype i = 0; i < mostCommands; ++i) {
        auto *button = new PillButton{{},
                                      i == 0 ? PillButton::Look::Filled : PillButton::Look::Quiet,
                                      isLarge ? PillButton::Size::Large : PillButton::Size::Usual};
        button->setObjectName(u"focusCommand%1"_s.arg(i + 1));
        connect(button, &QAbstractButton::clicked, this,
                [this, i] { m_presenter.perform(m_commands.value(i), m_mode); });
        m_buttons << button;
        row->addWidget(button);
    }
    row->addStretch(1);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    column->setSpacing(isLarge ? Metrics::margin : Metrics::grid * 2);
    column->addWidget(m_target, 0, Qt::AlignHCenter);
    column->addWidget(m_ring);
    column->addWidget(m_words);
    column->addWidget(m_notice);
    column->addLayout(row);
    setFocusProxy(m_buttons.first());
}

void FocusPanel::setMode(KWFocusType mode)
{
    m_mode = mode;
    refresh();
}

void FocusPanel::refresh()
{
    const FocusFace face = m_presenter.face(m_mode);
    m_target->setTarget(m_presenter.target());
    m_ring->setFace(face.phase, face.words);
    m_ring->setReading(m_presenter.reading(m_mode));
    m_words->setText(face.words);
    m_notice->setText(face.notice);
    m_notice->setVisible(!face.notice.isEmpty());
    showCommands(face.commands);
}

// The buttons stay and change what they say: the keyboard does not lose its place.
void FocusPanel::showCommands(const QList<FocusCommand> &commands)
{
    if (commands == m_commands) return;
    m_commands = commands;
    for (qsizetype i = 0; i < m_buttons.size(); ++i) {
        const bool isUsed = i < commands.size();
        if (!isUsed && m_buttons[i]->hasFocus()) m_buttons.first()->setFocus(Qt::OtherFocusReason);
        if (isUsed) m_buttons[i]->setLabel(FocusWording::command(commands[i]));
        m_buttons[i]->setVisible(isUsed);
    }
}

void FocusPanel::tick()
{
    if (!isVisible() || window()->isMinimized()) return;
    m_ring->setReading(m_presenter.reading(m_mode));
}

void FocusPanel::performFirst() { m_presenter.perform(m_commands.value(0), m_mode); }

void FocusPanel::pickTarget()
{
    ChoicePopup &popup = FocusTargetPopup::open(*m_target, m_presenter.target().target, m_presenter.kit());
    connect(&popup, &ChoicePopup::chosen, this,
            [this](const QString &target) { m_presenter.setTarget(FocusTarget::fromText(target)); });
}

void FocusPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    refresh();
}

void FocusPanel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) return performFirst();
    QWidget::keyPressEvent(event);
}
