#include "support/TaskBuilder.h"

#include "corvexkit/time/TimeText.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"

namespace {

Instant startOf(const char *day, const char *zone, std::chrono::days later = {})
{
    const auto read = TimeText::toDay(QString::fromLatin1(day));
    if (!read) qFatal("%s is no day such as 2030-05-01", day);
    return CXTimeZone::named(QString::fromLatin1(zone))->startOfDay(*read + later);
}

} // namespace

TaskBuilder::TaskBuilder(const char *title, const char *zone) : m_zone(zone)
{
    m_task.title = QString::fromUtf8(title);
}

TaskBuilder &TaskBuilder::dueOn(const char *day)
{
    m_task.startDate = startOf(day, m_zone);
    m_task.isAllDay = true;
    m_task.timeZone = QString::fromLatin1(m_zone);
    return *this;
}

TaskBuilder &TaskBuilder::dueFrom(const char *first, const char *last)
{
    m_task.endDate = startOf(last, m_zone, std::chrono::days{1});
    return dueOn(first);
}

TaskBuilder &TaskBuilder::startingAt(const char *localTime)
{
    m_task.startDate = at(localTime, m_zone);
    m_task.timeZone = QString::fromLatin1(m_zone);
    return *this;
}

TaskBuilder &TaskBuilder::endingAt(const char *localTime)
{
    m_task.endDate = at(localTime, m_zone);
    return *this;
}

TaskBuilder &TaskBuilder::tagged(const char *tag)
{
    m_task.tags.append(QString::fromUtf8(tag));
    return *this;
}

TaskBuilder &TaskBuilder::prioritized(KWTaskPriority priority)
{
    m_task.priority = priority;
    return *this;
}

TaskBuilder &TaskBuilder::ordered(std::int64_t sortOrder)
{
    m_task.sortOrder = sortOrder;
    return *this;
}

TaskBuilder &TaskBuilder::in(const QString &listID)
{
    m_task.projectID = listID;
    return *this;
}

TaskBuilder &TaskBuilder::completedAt(const char *localTime)
{
    m_task.status = KWTaskStatusCompleted;
    m_task.completionDate = at(localTime, m_zone);
    return *this;
}

TaskBuilder &TaskBuilder::withItem(const char *title, const char *localTime)
{
    m_task.kind = KWTaskKindChecklist;
    KWChecklistItemModel &item = m_items.emplaceBack();
    item.title = QString::fromUtf8(title);
    item.startDate = at(localTime, m_zone);
    return *this;
}

TaskBuilder &TaskBuilder::when(const QString &dates)
{
    if (dates == u'-') return *this;
    const QStringList ends = dates.split(QStringLiteral(" .. "));
    const QByteArray first = ends.first().toLatin1();
    const QByteArray last = ends.last().toLatin1();
    if (!dates.contains(u':')) return ends.size() == 2 ? dueFrom(first, last) : dueOn(first);
    startingAt(first);
    return ends.size() == 2 ? endingAt(last) : *this;
}

TaskBuilder &TaskBuilder::inState(const QString &words, const char *closedAt)
{
    for (const QString &word : words.split(u' ')) {
        if (word == u"completed" || word == u"abandoned") completedAt(closedAt);
        if (word == u"abandoned") m_task.status = KWTaskStatusAbandoned;
        if (word == u"trashed") m_task.isTrashed = true;
        if (word == u"deleted") m_task.isDeleted = true;
        if (word == u"repeating") m_task.repeatRule = QStringLiteral("RRULE:FREQ=DAILY");
        if (word.startsWith(u"assigned-")) m_task.assignee = word.section(u'-', 1).toInt();
    }
    return *this;
}

QString TaskBuilder::savedIn(StoreFixture &store) const
{
    KWTaskModel task = m_task;
    task.userID = store.userID();
    if (task.projectID.isEmpty()) task.projectID = KWProject::inboxIDOfUser(task.userID);
    saved(store, [&](ObjectContext &context) {
        task.sid = context.insert<KWTask>(task).sid();
        for (KWChecklistItemModel each : m_items) {
            each.userID = task.userID;
            each.taskID = task.sid;
            context.insert<KWChecklistItem>(each);
        }
    });
    return task.sid;
}

void saved(StoreFixture &store, const std::function<void(ObjectContext &)> &block)
{
    const Result<void> done =
        KWCoreDataService{store.kit().manager()}.sync_save([&block](ObjectContext &context) -> Result<void> {
            block(context);
            return {};
        });
    if (!done) qFatal("The changes cannot be saved: %s", qUtf8Printable(done.error().sentence));
}
