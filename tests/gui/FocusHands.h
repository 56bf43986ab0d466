#pragma once

#include "gui/HabitHands.h"

class FocusPanel;
class FocusRing;

/// What a person does on the page of focus, and what is seen there.
class FocusHands : public HabitHands {
public:
    /// The page is open; Saturday, 21 November 2026, nine o'clock, with the tasks "Water the plants" of today
    /// and "Sort the photos".
    void openFocus();

    FocusPanel &panel() const;
    FocusRing &ring() const;
    /// "14:50".
    QString time() const;
    /// What the buttons say: "Pause Stop".
    QString commands() const;
    void press(const QString &command) const;
    /// The line that says what starting does to the other mode.
    QString notice() const;
    /// "Pomo" or "Stopwatch".
    void choose(const QString &mode) const;
    /// By the keyboard, in the popup of the target.
    void focusOn(const QString &typed) const;
    QString target() const;
    /// "Water the plants 09:00 – 09:25", of all rows.
    QString records() const;
    void wait(std::chrono::seconds time) const;
};
