#include "views/calendar/TitleField.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Fonts.h"

#include <QFocusEvent>
#include <QKeyEvent>

TitleField::TitleField(QWidget *parent) : QLineEdit(parent)
{
    setObjectName(QStringLiteral("calendarTitle"));
    setAccessibleName(KWLocalizedString("Title of the new task"));
    setPlaceholderText(KWLocalizedString("New task"));
    setFont(Fonts::font(Fonts::Role::Secondary));
    setTextMargins(0, 0, 0, 0);
}

void TitleField::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return end(true);
    case Qt::Key_Escape:
        return end(false);
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void TitleField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    const bool comesBack =
        event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
    if (!comesBack) end(true);
}

void TitleField::end(bool isTaken)
{
    if (std::exchange(m_hasEnded, true)) return;
    const QString title = text().trimmed();
    if (isTaken && !title.isEmpty()) Q_EMIT taken(title);
    Q_EMIT ended(); // it may give the keyboard on
    hide();
    deleteLater();
}
