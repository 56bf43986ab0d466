#include "platform/Runner.h"

#include "corvexkit/log/CXLog.h"
#include "integration/scripting/ScriptingRoom.h"
#include "model/settings/KWLocalizedString.h"

#include <QDBusArgument>
#include <QDBusMetaType>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger runnerLog{u"script"};

// Kinds of matches, of KRunner.
constexpr int possibleMatch = 30;
constexpr int exactMatch = 100;

} // namespace

QDBusArgument &operator<<(QDBusArgument &argument, const RunnerMatch &match)
{
    argument.beginStructure();
    argument << match.id << match.text << match.icon << match.type << match.relevance << match.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, RunnerMatch &match)
{
    argument.beginStructure();
    argument >> match.id >> match.text >> match.icon >> match.type >> match.relevance >> match.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const RunnerAction &action)
{
    argument.beginStructure();
    argument << action.id << action.text << action.icon;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, RunnerAction &action)
{
    argument.beginStructure();
    argument >> action.id >> action.text >> action.icon;
    argument.endStructure();
    return argument;
}

Runner::Runner()
{
    qDBusRegisterMetaType<RunnerMatch>();
    qDBusRegisterMetaType<RunnerAction>();
    qDBusRegisterMetaType<QList<RunnerMatch>>();
    qDBusRegisterMetaType<QList<RunnerAction>>();
}

QList<RunnerMatch> Runner::Match(const QString &query)
{
    QList<RunnerMatch> matches;
    if (!m_room) return matches;
    double relevance = 1;
    for (const FoundTask &each : m_room->search().show(query, mostMatches)) {
        const bool isExact = each.title.compare(query.trimmed(), Qt::CaseInsensitive) == 0;
        QVariantMap properties{{u"subtext"_s, each.note}};
        // What is closed cannot be completed.
        properties.insert(u"actions"_s, each.isClosed ? QStringList{} : QStringList{completeAction});
        matches.append({.id = each.id,
                        .text = each.title,
                        .icon = u"orvane"_s,
                        .type = isExact ? exactMatch : possibleMatch,
                        .relevance = relevance,
                        .properties = properties});
        relevance -= 0.05;
    }
    return matches;
}

QList<RunnerAction> Runner::Actions()
{
    return {{completeAction, KWLocalizedString("Complete"), u"task-complete"_s}};
}

void Runner::Run(const QString &matchId, const QString &actionId)
{
    const QString token = std::exchange(m_activationToken, {});
    if (!m_room) return;
    if (actionId.isEmpty()) return m_room->windows().openTask(matchId, token);
    if (actionId != completeAction) return;
    const Result<QString> completed = m_room->tools().complete({.directParameter = matchId});
    if (!completed) runnerLog.warning(completed.error().sentence);
}
