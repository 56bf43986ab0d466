#include "views/main/FirstPaint.h"

#include <QEvent>
#include <QWidget>

FirstPaint::FirstPaint(QWidget &widget, std::function<void()> action)
    : QObject(&widget), m_action(std::move(action))
{
    widget.installEventFilter(this);
}

bool FirstPaint::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint) {
        watched->removeEventFilter(this);
        QMetaObject::invokeMethod(
            this,
            [this] {
                deleteLater();
                m_action();
            },
            Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}
