#pragma once

#include "corvexkit/time/TimeText.h"

#include <QStringList>

#include <vector>

/// Occurrences as the tables of tests/data/recurrence write them: dates and times in which what is as
/// before is left out, "02..05" for days that follow each other, "..." for more to come.
struct OccurrenceText {
    /// Times that `text` leaves out are those of `start`. A text that is none ends the program.
    OccurrenceText(const QString &text, LocalTime start);

    std::vector<LocalTime> times;
    bool goesOn = false;

private:
    void append(const QString &word, std::chrono::milliseconds usualTime);
};

/// "2030-05-01T09:00:00 2030-05-02T09:00:00", for messages.
inline QString joined(const std::vector<LocalTime> &times)
{
    QStringList words;
    for (const LocalTime time : times)
        words.append(TimeText::fromLocalTime(time));
    return words.join(u' ');
}
