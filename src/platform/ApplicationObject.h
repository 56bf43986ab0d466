#pragma once

#include "app/LaunchRequest.h"

#include <QDBusContext>
#include <QObject>
#include <QVariantList>
#include <QVariantMap>

#include <functional>

/// The program as the desktop and later starts of it see it on the bus.
class ApplicationObject : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// What a start with the session of the desktop asks for.
    static constexpr QLatin1StringView loginItemAction{"login-item"};
    /// What the menu of the icon asks for.
    static constexpr QLatin1StringView diagnosticsAction{"clear_data"};
    /// To type a task; its parameter may be one text, the title to begin with.
    static constexpr QLatin1StringView addTaskAction{"add-task"};

    /// `handler` is called from the event loop, when the caller has its answer.
    void setHandler(std::function<void(const LaunchRequest &)> handler) { m_handler = std::move(handler); }

    static QVariantMap platformDataOf(const LaunchRequest &request);

public Q_SLOTS: // named on the bus
    Q_SCRIPTABLE void Activate(const QVariantMap &platformData);
    /// What is no link of ours is passed over.
    Q_SCRIPTABLE void Open(const QStringList &uris, const QVariantMap &platformData);
    Q_SCRIPTABLE void ActivateAction(const QString &name, const QVariantList &parameter,
                                     const QVariantMap &platformData);

    /// What the interface org.orvane.QuickAdd1 passes on, too.
    void pass(const LaunchRequest &request);

private:
    void addTask(const QVariantList &parameter, const QVariantMap &platformData);

    std::function<void(const LaunchRequest &)> m_handler;
};
