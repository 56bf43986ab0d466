#include "views/alerts/CrashProtectionWindow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/alerts/Alert.h"

#include <QCoreApplication>

void CrashProtectionWindow::runModal(const QString &title, const QString &message,
                                     std::function<void()> continuation)
{
    const QStringList buttons{KWLocalizedString("Start Orvane"), KWLocalizedString("Quit")};
    if (Alert::run({title, message, buttons}) == 0)
        continuation();
    else
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}
