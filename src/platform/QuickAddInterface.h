#pragma once

#include "platform/ApplicationObject.h"

#include <QDBusAbstractAdaptor>

/// A task from anywhere, as one plain call: what a key of the desktop is bound to, or a script uses. Stands
/// on the object of the program.
class QuickAddInterface : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.orvane.QuickAdd1")

public:
    explicit QuickAddInterface(ApplicationObject &application)
        : QDBusAbstractAdaptor(&application), m_application(application)
    {
    }

public Q_SLOTS: // named on the bus
    /// Opens the window in which a task is typed, with `title` in its field; it may be empty.
    void Show(const QString &title) { m_application.pass({.cause = LaunchCause::AddTask, .title = title}); }

private:
    ApplicationObject &m_application;
};
