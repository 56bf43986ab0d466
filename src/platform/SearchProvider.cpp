#include "platform/SearchProvider.h"

#include "integration/scripting/ScriptingRoom.h"

#include <QDBusMetaType>

using namespace Qt::StringLiterals;

SearchProvider::SearchProvider() { qDBusRegisterMetaType<QList<QVariantMap>>(); }

QStringList SearchProvider::GetInitialResultSet(const QStringList &terms)
{
    QStringList ids;
    if (m_room)
        for (const FoundTask &each : m_room->search().show(terms.join(u' '), mostResults))
            ids.append(each.id);
    return ids;
}

// The results before are the best few of all: those of more words are not among them alone.
QStringList SearchProvider::GetSubsearchResultSet(const QStringList &, const QStringList &terms)
{
    return GetInitialResultSet(terms);
}

QList<QVariantMap> SearchProvider::GetResultMetas(const QStringList &identifiers)
{
    QList<QVariantMap> metas;
    if (!m_room) return metas;
    for (const FoundTask &each : m_room->search().show(identifiers.mid(0, mostResults)))
        metas.append({{u"id"_s, each.id},
                      {u"name"_s, each.title},
                      {u"description"_s, each.note},
                      {u"gicon"_s, u"orvane"_s},
                      {u"clipboardText"_s, each.title}});
    return metas;
}

void SearchProvider::ActivateResult(const QString &identifier, const QStringList &, uint)
{
    if (m_room) m_room->windows().openTask(identifier, {});
}

void SearchProvider::LaunchSearch(const QStringList &terms, uint)
{
    if (m_room) m_room->windows().openSearch(terms.join(u' ').left(ScriptSearch::longestText));
}
