#include "calendar/OccurrencesAhead.h"

#include "calendar/KWRepeatInstanceService.h"
#include "model/events/NotificationNames.h"

using namespace std::chrono_literals;

OccurrencesAhead::OccurrencesAhead(KWRepeatInstanceService &repeats, KWNotificationCenter &center,
                                   CXClock &clock)
{
    const auto generate = [&repeats] { repeats.generateInstancesWithInSixMonthes(); };
    m_observations.push_back(
        center.addObserver(KWUserDidSignInNotification, [this, &clock, generate](const KWNotification &) {
            m_soon = clock.callAfter(5s, generate);
        }));
    m_observations.push_back(
        center.addObserver(KWNewDayComesNotification, [generate](const KWNotification &) { generate(); }));
}
