#pragma once

#include <QList>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

class ScriptingRoom;

/// The search of GNOME Shell (its interface org.gnome.Shell.SearchProvider2): results are the ids of tasks.
/// None before open(), after close() and while nobody is signed in. Main thread.
class SearchProvider : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.gnome.Shell.SearchProvider2")

public:
    static inline const QString path = QStringLiteral("/org/orvane/SearchProvider");
    /// The desktop shows fewer still.
    static constexpr int mostResults = 10;

    SearchProvider();

    void open(const ScriptingRoom &room) { m_room = &room; }
    void close() { m_room = nullptr; }

public Q_SLOTS: // named on the bus
    Q_SCRIPTABLE QStringList GetInitialResultSet(const QStringList &terms);
    Q_SCRIPTABLE QStringList GetSubsearchResultSet(const QStringList &previousResults,
                                                   const QStringList &terms);
    Q_SCRIPTABLE QList<QVariantMap> GetResultMetas(const QStringList &identifiers);
    Q_SCRIPTABLE void ActivateResult(const QString &identifier, const QStringList &terms, uint timestamp);
    Q_SCRIPTABLE void LaunchSearch(const QStringList &terms, uint timestamp);

private:
    const ScriptingRoom *m_room = nullptr;
};
