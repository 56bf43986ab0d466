#include "platform/ScriptingSignals.h"

#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"

#include <algorithm>

ScriptingSignals::ScriptingSignals(OrvaneKit &kit, CXClock &clock, Told told)
    : m_clock(clock)
    , m_told(std::move(told))
    , m_registration(kit.bus().registerEventBus([this](const StoreChange &change) { take(change); }))
{
    for (const QString &each : {KWDataDidChangeOutsideMainAppNotification, KWSyncDidBatchPullNotification,
                                KWUserDidSignInNotification, KWUserDidSignOutNotification})
        m_observations.push_back(
            kit.center().addObserver(each, [this](const KWNotification &) { takeAnything(); }));
    // Another day has other tasks; and what waits to be deleted is in no list any more.
    for (const QString &each : {KWNewDayComesNotification, delayDeleteStatusChangedNotification})
        m_observations.push_back(kit.center().addObserver(each, [this](const KWNotification &) {
            m_isAnyTask = true;
            tellLater();
        }));
}

void ScriptingSignals::take(const StoreChange &change)
{
    using enum RecordKind;
    const StoreChange::Ids &tasks = change.of(Task);
    for (const QStringList &each : {tasks.inserted, tasks.updated, tasks.deleted})
        m_tasks.unite({each.begin(), each.end()});
    m_isAnyTask = m_isAnyTask || m_tasks.size() > mostIDs;
    m_areLists = m_areLists || change.touches(Project) || change.touches(ProjectGroup);
    if (m_isAnyTask || m_areLists || !m_tasks.isEmpty()) tellLater();
}

void ScriptingSignals::takeAnything()
{
    m_isAnyTask = true;
    m_areLists = true;
    tellLater();
}

void ScriptingSignals::tellLater()
{
    if (!m_later.isPending()) m_later = m_clock.callAfter(joinedOver, [this] { tell(); });
}

void ScriptingSignals::tell()
{
    QStringList ids = m_isAnyTask ? QStringList{} : m_tasks.values();
    ids.sort();
    const bool haveTasks = m_isAnyTask || !ids.isEmpty();
    const bool haveLists = m_areLists;
    m_tasks.clear();
    m_isAnyTask = m_areLists = false;
    if (haveTasks) m_told.tasksChanged(ids);
    if (haveLists) m_told.listsChanged();
}
