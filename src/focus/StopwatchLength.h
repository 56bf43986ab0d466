#pragma once

#include <QString>

/// How long a timing was in hours and minutes, as a person checks it; seconds are cut.
struct StopwatchLength {
    int hours = 0;
    int minutes = 0;

    static StopwatchLength ofSeconds(double seconds);
    double seconds() const { return (hours * 60.0 + minutes) * 60; }

    /// "hr" or "hrs", "min" or "mins", in the language of the interface.
    QString hoursUnit() const;
    QString minutesUnit() const;
    /// "1 hr 5 mins", "25 mins".
    QString text() const;

    bool operator==(const StopwatchLength &) const = default;
};
