#pragma once

#include "habits/HabitEditor.h"
#include "habits/HabitReader.h"
#include "habits/KWHabitCheckHelper.h"
#include "model/records/KWHabit.h"
#include "support/StoreFixture.h"

/// An account on Wednesday, 2030-05-01 at nine, and what makes habits in it.
struct HabitFixture {
    StoreFixture store{"2030-05-01 09:00", "Europe/Berlin"};
    KWHabitCheckHelper checks{store.kit()};
    HabitEditor editor{store.kit().manager(), store.userID()};
    static constexpr int today = 2030'05'01;

    /// One that began on the 1st of April.
    QString make(KWHabitModel habit = {})
    {
        if (habit.name.isEmpty()) habit.name = QStringLiteral("Read");
        if (habit.startStamp == 0) habit.startStamp = 2030'04'01;
        const auto made = editor.create(std::move(habit));
        if (!made) qFatal("%s", qUtf8Printable(made.error().sentence));
        return made->sid;
    }
    QString makeAmount(double goal, double step)
    {
        KWHabitModel habit;
        habit.isRealType = true;
        habit.goal = goal;
        habit.step = step;
        habit.unit = QStringLiteral("cups");
        return make(habit);
    }

    const KWHabit &habit(const QString &id) { return *store.context().find<KWHabit>(id); }
    HabitDay day(const QString &id, int stamp = today);
    /// "done 8/8", "open 5/8", "unachieved 5/8", "skipped 0/1".
    QString told(const QString &id, int stamp = today);
};
