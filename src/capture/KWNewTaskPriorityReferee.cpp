#include "capture/KWNewTaskPriorityReferee.h"

#include "model/events/NotificationNames.h"

KWNewTaskPriorityReferee::KWNewTaskPriorityReferee(KWNotificationCenter &center, CurrentDefault current)
    : m_defaults(current())
{
    m_configurationChanged = center.addObserver(
        KWTaskDefaultConfigurationChangedNotification,
        [this, current = std::move(current)](const KWNotification &) { m_defaults = current(); });
}

KWTaskPriority KWNewTaskPriorityReferee::priority(NewTaskPlace place) const
{
    if (place != NewTaskPlace::TaskList) return KWTaskPriorityNone;
    for (const auto &each : {m_manual, m_nlp, m_preset})
        if (each) return *each;
    return m_defaults;
}
