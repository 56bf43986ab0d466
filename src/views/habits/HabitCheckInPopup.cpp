#include "views/habits/HabitCheckInPopup.h"

#include "habits/HabitWording.h"
#include "habits/KWHabitCheckHelper.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/IconButton.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/TabOrder.h"
#include "views/habits/HabitNoteEdit.h"
#include "views/habits/HabitPhrases.h"
#include "views/theme/Metrics.h"
#include "views/wording/DateWording.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int popupWidth = 300;
constexpr int noteHeight = 64;

QPushButton *makePopupButton(const char *name, const QString &text = {})
{
    auto *button = new QPushButton{text};
    button->setObjectName(QLatin1StringView{name});
    button->setAccessibleName(text);
    button->setAutoDefault(true);
    return button;
}

void setTextOf(QPushButton &button, const QString &text)
{
    button.setText(text);
    button.setAccessibleName(text);
}

} // namespace

HabitCheckInPopup::HabitCheckInPopup(const Content &content, QWidget *parent)
    : PopupFrame(parent)
    , m_content(content)
    , m_amount(new QLineEdit)
    , m_unit(makePlainLabel({}, Fonts::Role::Body, QPalette::PlaceholderText))
    , m_state(makePlainLabel({}, Fonts::Role::Secondary, QPalette::PlaceholderText))
    , m_problem(makeProblemLine("habitDayProblem"))
    , m_done(makePopupButton("habitDayDone"))
    , m_unAchieved(makePopupButton("habitDayUnAchieved"))
    , m_skip(makePopupButton("habitDaySkip"))
    , m_save(makePopupButton("habitDaySave", KWLocalizedString("Save")))
    , m_note(new HabitNoteEdit)
{
    setObjectName(u"habitCheckIn"_s);
    const QString day = DateWording::fullDay(content.day.day, locale());
    setAccessibleName(KWLocalizedString("%1, %2").arg(content.habit.name, day));
    m_note->setPlainText(content.note);
    m_note->setFixedHeight(Metrics::scaled(noteHeight));

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap);
    column->setSpacing(Metrics::grid * 2);
    column->addWidget(makePlainLabel(content.habit.name, Fonts::Role::BodyStrong));
    column->addWidget(m_state);
    if (content.habit.isRealType) column->addLayout(makeAmountRow());
    column->addWidget(m_problem);
    column->addLayout(makeMarks());
    column->addWidget(m_note);
    column->addWidget(m_save, 0, Qt::AlignRight);
    connect(m_note, &HabitNoteEdit::taken, this, [this] { take(HabitDayEdit::Mark::None); });
    connect(m_note, &HabitNoteEdit::givenUp, this, &HabitCheckInPopup::discard);
    connect(m_save, &QPushButton::clicked, this, [this] { take(HabitDayEdit::Mark::None); });
    m_amount->setText(HabitWording::amount(content.day.value, locale()));
    setTabOrderOf(controlsInOrder(*this));
    if (!content.habit.isRealType) keepWithoutAmount();
    showDay();
}

// They stand in no row then.
void HabitCheckInPopup::keepWithoutAmount()
{
    for (QWidget *each : {static_cast<QWidget *>(m_amount), static_cast<QWidget *>(m_unit)}) {
        each->setParent(this);
        each->hide();
    }
}

QLayout *HabitCheckInPopup::makeAmountRow()
{
    m_amount->setObjectName(u"habitDayAmount"_s);
    m_amount->setAccessibleName(KWLocalizedString("Amount"));
    m_unit->setText(KWLocalizedString("of %1").arg(
        HabitWording::amountWithUnit(m_content.day.goal, m_content.habit.unit, locale())));
    m_unit->setWordWrap(false);
    auto *less = new IconButton{Icon::Minus, KWLocalizedString("One step less")};
    less->setObjectName(u"habitDayLess"_s);
    auto *more = new IconButton{Icon::Add, KWLocalizedString("One step more")};
    more->setObjectName(u"habitDayMore"_s);
    for (IconButton *each : {less, more})
        each->setAutoRepeat(true);
    connect(less, &QAbstractButton::clicked, this, [this] { step(-1); });
    connect(more, &QAbstractButton::clicked, this, [this] { step(1); });
    connect(m_amount, &QLineEdit::textEdited, m_problem, &QLabel::hide);
    connect(m_amount, &QLineEdit::returnPressed, this, [this] { take(HabitDayEdit::Mark::None); });
    m_amount->installEventFilter(this);
    auto *row = new QHBoxLayout;
    row->setSpacing(Metrics::grid);
    row->addWidget(less);
    row->addWidget(m_amount, 1);
    row->addWidget(more);
    row->addWidget(m_unit);
    return row;
}

QLayout *HabitCheckInPopup::makeMarks()
{
    using enum HabitDayEdit::Mark;
    connect(m_done, &QPushButton::clicked, this, [this] {
        const bool isDone = m_content.day.state == HabitDayState::Done;
        take(isDone && !m_content.habit.isRealType ? NotDone : Done);
    });
    connect(m_unAchieved, &QPushButton::clicked, this,
            [this] { take(m_content.day.state == HabitDayState::UnAchieved ? UndoUnAchieved : UnAchieved); });
    connect(m_skip, &QPushButton::clicked, this,
            [this] { take(m_content.day.state == HabitDayState::Skipped ? NotSkipped : Skipped); });
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    auto *row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(m_unAchieved, 1);
    row->addWidget(m_skip, 1);
    column->addWidget(m_done);
    column->addLayout(row);
    return column;
}

void HabitCheckInPopup::setContent(const Content &content)
{
    const bool isAmountTyped = m_amount->text() != HabitWording::amount(m_content.day.value, locale());
    const bool isNoteTyped = m_note->toPlainText() != m_content.note;
    m_content = content;
    if (!isAmountTyped) m_amount->setText(HabitWording::amount(content.day.value, locale()));
    if (!isNoteTyped) m_note->setPlainText(content.note);
    showDay();
}

void HabitCheckInPopup::showDay()
{
    const HabitDay &day = m_content.day;
    m_state->setText(HabitPhrases::spokenDay(day, m_content.habit, locale()));
    const bool isDone = day.state == HabitDayState::Done;
    setTextOf(*m_done, m_content.habit.isRealType ? KWLocalizedString("Reach Goal")
                       : isDone                   ? KWLocalizedString("Not Done")
                                                  : KWLocalizedString("Done"));
    m_done->setDefault(!m_content.habit.isRealType && !isDone);
    m_done->setEnabled(!m_content.habit.isRealType || !isDone);
    m_save->setDefault(m_content.habit.isRealType);
    setTextOf(*m_unAchieved, day.state == HabitDayState::UnAchieved ? KWLocalizedString("Undo Not Achieved")
                                                                    : KWLocalizedString("Not Achieved"));
    setTextOf(*m_skip, day.state == HabitDayState::Skipped ? KWLocalizedString("Undo Skip")
                                                           : KWLocalizedString("Skip"));
}

void HabitCheckInPopup::popUp(const QRect &anchor)
{
    setFixedWidth(Metrics::scaled(popupWidth));
    layout()->activate();
    const QSize size{width(), sizeHint().height()};
    const QScreen *screen = parentWidget() ? parentWidget()->screen() : this->screen();
    const bool fitsBelow =
        anchor.bottom() + Metrics::grid + size.height() <= screen->availableGeometry().bottom();
    const int top =
        fitsBelow ? anchor.bottom() + Metrics::grid : anchor.top() - Metrics::grid - size.height();
    place({anchor.center().x() - size.width() / 2, top}, size);
    show();
    if (m_content.habit.isRealType) {
        m_amount->setFocus(Qt::PopupFocusReason);
        m_amount->selectAll();
    } else {
        m_done->setFocus(Qt::PopupFocusReason);
    }
}

void HabitCheckInPopup::showProblem(const QString &sentence)
{
    sayIn(*m_problem, sentence);
    layout()->activate();
    resize(width(), sizeHint().height());
}

void HabitCheckInPopup::discard()
{
    m_isDiscarded = true;
    close();
}

void HabitCheckInPopup::step(double steps)
{
    const auto amount = HabitWording::toAmount(m_amount->text(), locale());
    const double from = amount ? *amount : m_content.day.value;
    const double places = 1e6; // ten tenths are one
    const double next = std::round((from + steps * m_content.habit.step) * places) / places;
    m_amount->setText(
        HabitWording::amount(std::clamp(next, 0.0, KWHabitCheckHelper::greatestAmount), locale()));
    m_problem->hide();
}

std::optional<QString> HabitCheckInPopup::typedNote() const
{
    return m_note->toPlainText() == m_content.note ? std::nullopt : std::optional{m_note->toPlainText()};
}

Result<std::optional<double>> HabitCheckInPopup::typedAmount() const
{
    const bool isTyped =
        m_content.habit.isRealType && m_amount->text() != HabitWording::amount(m_content.day.value, locale());
    if (!isTyped) return std::optional<double>{};
    const Result<double> amount = HabitWording::toAmount(m_amount->text(), locale());
    if (!amount) return amount.error();
    return std::optional{*amount};
}

// A mark says more than an amount that stands in the field, whatever that is.
void HabitCheckInPopup::take(HabitDayEdit::Mark mark)
{
    HabitDayEdit edit{.mark = mark, .note = typedNote()};
    if (mark == HabitDayEdit::Mark::None) {
        const auto amount = typedAmount();
        if (!amount) {
            showProblem(amount.error().sentence);
            m_amount->setFocus(Qt::OtherFocusReason);
            return m_amount->selectAll();
        }
        edit.amount = *amount;
    } else if (mark == HabitDayEdit::Mark::Done && m_content.habit.isRealType) {
        edit.mark = HabitDayEdit::Mark::None;
        edit.amount = std::max(m_content.day.goal, m_content.day.value);
    }
    if (edit.isEmpty()) return discard();
    Q_EMIT edited(edit);
}

void HabitCheckInPopup::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        discard();
    else
        PopupFrame::keyPressEvent(event);
}

bool HabitCheckInPopup::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress) return PopupFrame::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() == Qt::Key_Escape) {
        discard();
        return true;
    }
    if (watched == m_amount && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)) {
        step(key->key() == Qt::Key_Up ? 1 : -1);
        return true;
    }
    return PopupFrame::eventFilter(watched, event);
}

// A click beside it: what can be taken is.
void HabitCheckInPopup::hideEvent(QHideEvent *event)
{
    PopupFrame::hideEvent(event);
    if (event->spontaneous() || std::exchange(m_isDiscarded, true)) return;
    const auto amount = typedAmount();
    const HabitDayEdit edit{.amount = amount ? *amount : std::nullopt, .note = typedNote()};
    if (!edit.isEmpty()) Q_EMIT edited(edit);
    if (!amount) Q_EMIT refused(amount.error().sentence);
}
