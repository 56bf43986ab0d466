#include "model/events/KWNotificationCenter.h"

#include <vector>

struct KWNotificationCenter::Observer {
    QString name; // null: every one
    Handler handler;
};

KWNotificationCenter::KWNotificationCenter() = default;
KWNotificationCenter::~KWNotificationCenter() = default;

KWNotificationCenter::Observation KWNotificationCenter::addObserver(const QString &name, Handler handler)
{
    return add(std::make_shared<Observer>(Observer{name, std::move(handler)}));
}

KWNotificationCenter::Observation KWNotificationCenter::addObserver(Handler handler)
{
    return add(std::make_shared<Observer>(Observer{{}, std::move(handler)}));
}

KWNotificationCenter::Observation KWNotificationCenter::add(std::shared_ptr<Observer> observer)
{
    std::erase_if(m_observers, [](const auto &each) { return each.expired(); });
    m_observers.push_back(observer);
    Observation observation;
    observation.m_observer = std::move(observer);
    return observation;
}

void KWNotificationCenter::post(const QString &name, const QVariant &object, const QVariantMap &userInfo)
{
    const KWNotification notification{name, object, userInfo};
    const std::vector<std::weak_ptr<Observer>> observers = m_observers;
    for (const auto &each : observers) {
        const std::shared_ptr<Observer> observer = each.lock();
        if (observer && (observer->name.isNull() || observer->name == name)) observer->handler(notification);
    }
}
