#include "views/habits/HabitNoteRow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/PlainLabel.h"
#include "views/habits/HabitNoteEdit.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/wording/DateWording.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int noteRowPadding = 4;

} // namespace

HabitNoteRow::HabitNoteRow(QString habitID, Day day, Store store, QWidget *parent)
    : QWidget(parent)
    , m_habitID(std::move(habitID))
    , m_day(day)
    , m_store(std::move(store))
    , m_dayName(makePlainLabel({}, Fonts::Role::Caption, QPalette::PlaceholderText))
    , m_text(makePlainLabel({}, Fonts::Role::Body))
    , m_edit(new HabitNoteEdit)
{
    setObjectName(u"habitNote"_s);
    m_edit->hide();
    auto *lines = new QVBoxLayout{this};
    lines->setContentsMargins(noteRowPadding, noteRowPadding, noteRowPadding, noteRowPadding);
    lines->setSpacing(0);
    for (QWidget *each :
         {static_cast<QWidget *>(m_dayName), static_cast<QWidget *>(m_text), static_cast<QWidget *>(m_edit)})
        lines->addWidget(each);
    connect(m_edit, &HabitNoteEdit::taken, this, [this] {
        take();
        if (!isEditing()) setFocus(Qt::OtherFocusReason);
    });
    connect(m_edit, &HabitNoteEdit::givenUp, this, [this] {
        endEditing();
        setFocus(Qt::OtherFocusReason);
    });
    connect(m_edit, &HabitNoteEdit::left, this, &HabitNoteRow::take);
    connect(m_edit->document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
            &HabitNoteRow::fitEditor);
    setEditable(true);
}

void HabitNoteRow::setNote(const QString &text, Day today)
{
    m_stored = text;
    const QString day = DateWording::weekdayAndDay(m_day, today, locale());
    m_dayName->setText(day);
    m_text->setText(text);
    setAccessibleName(KWLocalizedString("%1: %2").arg(day, text));
}

void HabitNoteRow::setEditable(bool isEditable)
{
    m_isEditable = isEditable;
    setFocusPolicy(isEditable ? Qt::StrongFocus : Qt::NoFocus);
    setToolTip(isEditable ? KWLocalizedString("Enter or a double click edits the note") : QString{});
    setAccessibleDescription(toolTip());
}

bool HabitNoteRow::isEditing() const { return !m_edit->isHidden(); }

void HabitNoteRow::edit()
{
    if (!m_isEditable || isEditing()) return;
    m_edit->setPlainText(m_stored);
    m_text->hide();
    m_edit->show();
    fitEditor();
    m_edit->setFocus(Qt::OtherFocusReason);
    m_edit->moveCursor(QTextCursor::End);
}

// Hiding the field takes the keyboard from it, which must not store anything again.
void HabitNoteRow::endEditing()
{
    const QSignalBlocker silent{m_edit};
    m_edit->hide();
    m_text->show();
}

void HabitNoteRow::take()
{
    if (!isEditing()) return;
    const QString typed = m_edit->toPlainText().trimmed();
    if (typed != m_stored && !m_store(m_habitID, m_day, typed)) return;
    m_text->setText(typed);
    endEditing();
}

void HabitNoteRow::fitEditor()
{
    const int needed = qCeil(m_edit->document()->size().height()) + 2 * m_edit->frameWidth();
    m_edit->setFixedHeight(std::max(Metrics::scaled(Metrics::control), needed));
}

void HabitNoteRow::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_F2:
        return edit();
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (m_isEditable) m_store(m_habitID, m_day, {});
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void HabitNoteRow::mouseDoubleClickEvent(QMouseEvent *) { edit(); }

void HabitNoteRow::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    update();
}

void HabitNoteRow::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    update();
}

void HabitNoteRow::paintEvent(QPaintEvent *)
{
    if (!hasFocus() || !window()->testAttribute(Qt::WA_KeyboardFocusChange)) return;
    QPainter painter{this};
    Painting::focusRing(painter, rect(), Metrics::rowRadius);
}
