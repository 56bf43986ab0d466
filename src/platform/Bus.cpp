#include "platform/Bus.h"

#include <QDBusPendingCallWatcher>

void whenAnswered(const QDBusPendingCall &call, QObject &context,
                  std::function<void(const QDBusPendingCall &)> then)
{
    auto *watcher = new QDBusPendingCallWatcher{call, &context};
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context,
                     [watcher, then = std::move(then)] {
                         watcher->deleteLater();
                         then(*watcher);
                     });
}
