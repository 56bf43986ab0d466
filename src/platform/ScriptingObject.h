#pragma once

#include <QDBusMessage>
#include <QDBusVirtualObject>

class ScriptingRoom;

/// The interface org.orvane.Scripting1 on the bus, as packaging/dbus/org.orvane.Scripting1.xml defines it.
/// The five commands take any arguments: those that they do not understand are answered by an empty text.
/// So is everything before open() and after close(). Options may be left out. Main thread.
class ScriptingObject : public QDBusVirtualObject {
public:
    static inline const QString path = QStringLiteral("/org/orvane/Scripting");
    static inline const QString interface = QStringLiteral("org.orvane.Scripting1");
    static inline const QString errorName = QStringLiteral("org.orvane.Scripting1.Error.Failed");

    /// The room outlives what is between this and close().
    void open(const ScriptingRoom &room) { m_room = &room; }
    void close() { m_room = nullptr; }

    /// The file, as it stands.
    static QString introspection();

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &call, const QDBusConnection &bus) override;

private:
    QDBusMessage tool(const QString &name, const QDBusMessage &call) const;

    const ScriptingRoom *m_room = nullptr;
};
