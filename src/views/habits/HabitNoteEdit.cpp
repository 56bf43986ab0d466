#include "views/habits/HabitNoteEdit.h"

#include "model/settings/KWLocalizedString.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

HabitNoteEdit::HabitNoteEdit(QWidget *parent) : QTextEdit(parent)
{
    setObjectName(u"habitDayNote"_s);
    setAccessibleName(KWLocalizedString("Note"));
    setPlaceholderText(KWLocalizedString("Note"));
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setFrameShape(NoFrame);
    viewport()->setBackgroundRole(QPalette::AlternateBase);
}

void HabitNoteEdit::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && !(event->modifiers() & Qt::ShiftModifier))
        Q_EMIT taken();
    else if (event->key() == Qt::Key_Escape)
        Q_EMIT givenUp();
    else
        QTextEdit::keyPressEvent(event);
}

void HabitNoteEdit::focusOutEvent(QFocusEvent *event)
{
    QTextEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) Q_EMIT left();
}
