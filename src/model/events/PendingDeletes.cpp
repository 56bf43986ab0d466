#include "model/events/PendingDeletes.h"

#include "model/events/NotificationNames.h"

#include <QStringList>

using namespace Qt::StringLiterals;

PendingDeletes::PendingDeletes(KWNotificationCenter &center, std::function<void()> onChanged)
    : m_onChanged(std::move(onChanged))
    , m_observation(center.addObserver(delayDeleteStatusChangedNotification,
                                       [this](const KWNotification &each) { take(each); }))
{
}

void PendingDeletes::take(const KWNotification &notification)
{
    const QVariantMap &info = notification.userInfo;
    if (info.value(u"type"_s).toInt() != int(KWDelayDeleteType::Tasks)) return;
    const auto status = KWDelayDeleteStatus(info.value(u"status"_s).toInt());
    for (const QString &each : info.value(u"taskIDs"_s).toStringList())
        if (status == KWDelayDeleteStatus::Started)
            m_taskIDs.insert(each);
        else
            m_taskIDs.remove(each);
    m_onChanged();
}
