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
