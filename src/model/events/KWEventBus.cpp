#include "model/events/KWEventBus.h"

KWEventBus::Registration KWEventBus::registerEventBus(Handler handler)
{
    std::erase_if(m_handlers, [](const auto &each) { return each.expired(); });
    auto registered = std::make_shared<Handler>(std::move(handler));
    m_handlers.push_back(registered);
    return registered;
}

void KWEventBus::post(const StoreChange &change)
{
    const auto handlers = m_handlers;
    for (const auto &each : handlers)
        if (const auto handler = each.lock()) (*handler)(change);
}

void eb_postTasksDeleted(KWEventBus &bus, const QStringList &taskIDs)
{
    StoreChange change;
    change.of(RecordKind::Task).deleted = taskIDs;
    bus.post(change);
}

void eb_postHabitUpdated(KWEventBus &bus, const QString &habitID)
{
    StoreChange change;
    change.of(RecordKind::Habit).updated.append(habitID);
    bus.post(change);
}

void eb_postHabitsInserted(KWEventBus &bus, const QStringList &habitIDs)
{
    StoreChange change;
    change.of(RecordKind::Habit).inserted = habitIDs;
    bus.post(change);
}

void eb_postColumnUpdated(KWEventBus &bus, const QString &columnID, const QStringList &properties)
{
    StoreChange change;
    change.of(RecordKind::Column).updated.append(columnID);
    change.properties = properties;
    bus.post(change);
}

void eb_postColumnInserted(KWEventBus &bus, const QString &columnID)
{
    StoreChange change;
    change.of(RecordKind::Column).inserted.append(columnID);
    bus.post(change);
}
