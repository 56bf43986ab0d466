#pragma once

#include "client/DesktopRooms.h"
#include "client/ScriptingRooms.h"
#include "platform/DBusSingleInstance.h"
#include "platform/ScriptingBus.h"
#include "support/StoreFixture.h"

#include <QDBusMessage>

/// The client on the bus, every room as in the program, and another program that calls it. Wednesday, 1 May
/// 2030, nine o'clock UTC.
class ScriptingFixture {
public:
    ScriptingFixture();
    ~ScriptingFixture();

    StoreFixture store;

    OrvaneKit &kit() { return store.kit(); }
    DesktopRooms &rooms() { return *m_rooms; }
    QString busName() { return DBusSingleInstance::busName(kit().folders()); }

    /// The connection of the other program.
    static QDBusConnection caller();
    /// The answer or the error.
    QDBusMessage call(const QString &path, const QString &interface, const QString &member,
                      const QVariantList &arguments);
    QDBusMessage scripting(const char *member, const QVariantList &arguments);
    /// The text that a method answered; an error ends the program with its message.
    QString answer(const char *member, const QVariantList &arguments = {QVariantMap{}});

    /// As before the store is open, or while it is brought up to date.
    void closeStore() { m_scripting.reset(); }

private:
    ScriptingBus m_bus;
    std::unique_ptr<DesktopRooms> m_rooms;
    std::unique_ptr<ScriptingRooms> m_scripting;
    DBusSingleInstance m_channel;
};
