#include "views/alerts/AlertPresenter.h"

#include "views/alerts/Alert.h"

void AlertPresenter::show(const AlertText &alert, std::function<void(int)> answered)
{
    QMetaObject::invokeMethod(
        this, [alert, answered = std::move(answered)] { answered(Alert::run(alert)); }, Qt::QueuedConnection);
}
