#pragma once

#include "gui/MainWindowHands.h"
#include "model/records/HabitDay.h"
#include "model/records/KWHabitModel.h"

class HabitListView;

/// What a person does on the page of habits, and what is seen and stored of it.
class HabitHands : public MainWindowHands {
public:
    /// The page is open; Saturday, 21 November 2026, nine o'clock.
    void openHabits(const char *localTime = "2026-11-21 09:00");

    HabitListView &habits() const;
    /// "[Morning] Stretch Read [Night]".
    QString shownHabits() const;
    QString habitID(const QString &name) const;
    KWHabitModel habit(const QString &name) const;
    /// As it is stored, so many days ago.
    HabitDay dayOf(const QString &name, int ago = 0) const;
    /// Made as the editor makes it.
    void makeHabit(const QString &name, const std::function<void(KWHabitModel &)> &edit = {}) const;
    /// The keyboard on the habit, in the column of the day so many days ago; on the name without.
    void goToHabit(const QString &name, std::optional<int> ago = {}) const;
    void chooseOfHabit(const QString &entry) const;
    QMenu &habitMenu() const;

    /// A widget of the window that stands over the page; ends the program when there is none.
    template <class Widget>
    Widget &over(const char *window, const char *name = nullptr) const
    {
        return *static_cast<Widget *>(findOver(window, name));
    }
    bool isOpen(const char *window) const;
    void typeInto(QWidget &field, const QString &text) const;
    /// The keyboard is the window's own again after what stood over it.
    void comeBack() const;
    /// The same, and Ctrl+Z.
    void takeBack() const;
    /// What the toast says.
    QString toastText() const;

private:
    QWidget *findOver(const char *window, const char *name) const;
};
