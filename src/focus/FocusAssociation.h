#pragma once

#include "focus/FocusTarget.h"

class KWNotificationCenter;

/// What is focused on now, or will be when a session starts. Main thread.
class FocusAssociation {
public:
    explicit FocusAssociation(KWNotificationCenter &center) : m_center(center) {}

    const FocusTarget &object() const { return m_object; }
    /// Posts `KWFocusRunningTaskChanged` if it is another one than before.
    void setObject(const FocusTarget &object);

private:
    KWNotificationCenter &m_center;
    FocusTarget m_object;
};
