#pragma once

#include <QList>
#include <QObject>
#include <QVariantMap>

class QDBusArgument;
class ScriptingRoom;

/// One match of KRunner: (sssida{sv}).
struct RunnerMatch {
    QString id;
    QString text;
    QString icon;
    int type = 0;
    double relevance = 0;
    QVariantMap properties;
};

/// What can be done with a match besides opening it: (sss).
struct RunnerAction {
    QString id;
    QString text;
    QString icon;
};

QDBusArgument &operator<<(QDBusArgument &argument, const RunnerMatch &match);
const QDBusArgument &operator>>(const QDBusArgument &argument, RunnerMatch &match);
QDBusArgument &operator<<(QDBusArgument &argument, const RunnerAction &action);
const QDBusArgument &operator>>(const QDBusArgument &argument, RunnerAction &action);

Q_DECLARE_METATYPE(RunnerMatch)
Q_DECLARE_METATYPE(RunnerAction)

/// The search of KRunner (its interface org.kde.krunner1): matches are tasks. None before open(), after
/// close() and while nobody is signed in. Main thread.
class Runner : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.krunner1")

public:
    static inline const QString path = QStringLiteral("/org/orvane/Runner");
    static constexpr int mostMatches = 10;
    static constexpr QLatin1StringView completeAction{"complete"};

    Runner();

    void open(const ScriptingRoom &room) { m_room = &room; }
    void close() { m_room = nullptr; }

public Q_SLOTS: // named on the bus
    Q_SCRIPTABLE QList<RunnerMatch> Match(const QString &query);
    Q_SCRIPTABLE QList<RunnerAction> Actions();
    /// Opens the task, or completes it.
    Q_SCRIPTABLE void Run(const QString &matchId, const QString &actionId);
    /// For the next Run().
    Q_SCRIPTABLE void SetActivationToken(const QString &token) { m_activationToken = token; }
    Q_SCRIPTABLE void Teardown() {}

private:
    const ScriptingRoom *m_room = nullptr;
    QString m_activationToken;
};
