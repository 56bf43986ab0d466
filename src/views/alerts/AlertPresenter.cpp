#include "views/alerts/AlertPresenter.h"

#include "views/alerts/Alert.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

// The keyboard goes back to the window that had it.
void AlertPresenter::show(const AlertText &alert, std::function<void(int)> answered)
{
    const auto ask = [alert, answered = std::move(answered)] {
        const QPointer<QWidget> before = QApplication::activeWindow();
        const int button = Alert::run(alert);
        if (before && before->isVisible()) before->activateWindow();
        answered(button);
    };
    QMetaObject::invokeMethod(this, ask, Qt::QueuedConnection);
}
