#include "calendar/RepeatInstanceRun.h"

#include "model/records/KWUserSettings.h"
#include "model/store/KWTaskFinder.h"
#include "model/store/ObjectContext.h"

#include <algorithm>

RepeatInstanceRun::RepeatInstanceRun(Request request, ObjectContext &context,
                                     std::function<bool()> isCancelled)
    : m_request(std::move(request))
    , m_context(context)
    , m_isCancelled(std::move(isCancelled))
    , m_local(context.clock().zone())
    , m_firstWeekday(KWUserSettings::firstWeekdayOfUser(m_request.userID, context))
{
}

Result<bool> RepeatInstanceRun::perform()
{
    Result<std::vector<SourceModel>> sources = this->sources();
    if (!sources) return sources.error();
    if (m_isCancelled()) return false;
    if (const Result<void> read = readFlags(); !read) return read.error();
    if (m_isCancelled()) return false;
    for (SourceModel &each : *sources)
        reconcile(std::move(each));
    if (const Result<void> read = readExisting(); !read) return read.error();
    if (m_isCancelled()) return false;
    for (const Task &each : m_tasks) {
        expand(each);
        if (m_isCancelled()) return false;
    }
    return write();
}

Result<std::vector<SourceModel>> RepeatInstanceRun::sources() const
{
    const std::int64_t serverID =
        m_context.number("SELECT userServerID FROM users WHERE sid = ?", {m_request.userID});
    auto tasks = KWTaskFinder::findAllTasksWillRepeatOfUser({m_request.userID, serverID}, m_context);
    if (!tasks) return tasks.error();
    auto events = KWCalSubscriptionEvent::eventsWillRepeatOfUser(m_request.userID, m_context);
    if (!events) return events.error();
    std::vector<SourceModel> sources;
    sources.reserve(tasks->size() + events->size());
    for (RepeatingTask &each : *tasks)
        sources.push_back(SourceModel::ofTask(std::move(each), m_request.userID));
    for (KWCalSubscriptionEvent::Repeating &each : *events)
        sources.push_back(SourceModel::ofEvent(std::move(each), m_request.userID));
    return sources;
}

Result<void> RepeatInstanceRun::readFlags()
{
    const auto flags = KWRepeatInstanceFetchFlag::allFetchFlagsOfUser(m_request.userID, m_context);
    if (!flags) return flags.error();
    m_flags.reserve(qsizetype(flags->size()));
    for (const Flag &each : *flags)
        m_flags.insert(each.referenceID, each);
    return {};
}

// Ranges only ever widen.
void RepeatInstanceRun::reconcile(SourceModel source)
{
    const std::int64_t hashTag = source.hashTag();
    const Range whole{m_request.startDate, m_request.endDate};
    const auto known = m_flags.constFind(source.entityID);
    if (known == m_flags.cend() || known->hashTag != hashTag) {
        const bool isKnown = known != m_flags.cend();
        if (isKnown) m_changed.append(source.entityID);
        m_newFlags.push_back({source.entityID, whole.from, whole.to, hashTag});
        m_flags.remove(source.entityID);
        m_tasks.push_back({std::move(source), {whole}, isKnown});
        return;
    }
    Flag flag = *known;
    m_flags.erase(known);
    Task task{std::move(source)};
    if (whole.from < flag.fetchBeginDate) {
        task.missing.append({whole.from, flag.fetchBeginDate});
        flag.fetchBeginDate = whole.from;
    }
    if (flag.fetchEndDate < whole.to) {
        task.missing.append({flag.fetchEndDate, whole.to});
        flag.fetchEndDate = whole.to;
    }
    if (task.missing.isEmpty()) return;
    m_widenedFlags.push_back(std::move(flag));
    m_tasks.push_back(std::move(task));
}

// In one query. What is missing begins and ends with dates that are stored.
Result<void> RepeatInstanceRun::readExisting()
{
    QStringList ids;
    Range around{m_request.startDate, m_request.endDate};
    for (const Task &task : m_tasks) {
        if (task.isChanged) continue;
        ids.append(task.source.entityID);
        for (const Range &each : task.missing)
            around = {std::min(around.from, each.from), std::max(around.to, each.to)};
    }
    if (ids.isEmpty()) return {};
    const auto existing =
        KWRepeatInstance::instancesOfUser(m_request.userID, ids, around.from, around.to, m_context);
    if (!existing) return existing.error();
    for (const KWRepeatInstance::Start &each : *existing)
        if (!each.isDeleted) m_existedInstanceDateDict[each.referenceID].push_back(each.startDate);
    return {};
}

void RepeatInstanceRun::expand(const Task &task)
{
    const SourceModel &source = task.source;
    const auto existing = m_existedInstanceDateDict.constFind(source.entityID);
    const auto isStored = [&](Instant date) {
        return existing != m_existedInstanceDateDict.cend() && std::ranges::binary_search(*existing, date);
    };
    for (const Range &each : task.missing)
        for (const Instant date : source.laterOccurrences(each.from, each.to, m_local, m_firstWeekday))
            if (!isStored(date))
                m_made.push_back({source.entityID, source.instanceType, date, date + source.duration()});
}

Result<bool> RepeatInstanceRun::write()
{
    const QString &user = m_request.userID;
    const QStringList purged = m_flags.keys() + m_changed;
    Result<void> written = KWRepeatInstance::deleteAllWithRefreenceIDs(purged, user, m_context);
    if (written) written = KWRepeatInstanceFetchFlag::deleteAllWithRefreenceIDs(purged, user, m_context);
    if (written) written = KWRepeatInstance::insertAll(m_made, user, m_context);
    if (written) written = KWRepeatInstanceFetchFlag::insertAll(m_newFlags, user, m_context);
    if (written) written = KWRepeatInstanceFetchFlag::updateAll(m_widenedFlags, user, m_context);
    if (!written) return written.error();
    return !purged.isEmpty() || !m_made.empty();
}
