#include "focus/FocusAssociation.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"

void FocusAssociation::setObject(const FocusTarget &object)
{
    if (object == m_object) return;
    m_object = object;
    m_center.post(KWFocusRunningTaskChanged);
}
