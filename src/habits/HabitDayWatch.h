#pragma once

#include "corvexkit/time/Instant.h"
#include "model/events/KWNotificationCenter.h"

#include <optional>
#include <vector>

class OrvaneKit;

/// Notices that another day of habits has begun, at the hour that the account has chosen: streaks that were
/// not kept yesterday end, and "KWNewHabitDayComesNotification" is posted. Main thread.
class HabitDayWatch {
public:
    /// The kit outlives it.
    explicit HabitDayWatch(OrvaneKit &kit);

    /// Makes the sections of a new account and counts all streaks as of today, in the background.
    void dailyCheck();

private:
    void checkDay();
    void updateStreaks();

    OrvaneKit &m_kit;
    std::optional<Day> m_day;
    std::vector<KWNotificationCenter::Observation> m_observations;
};
