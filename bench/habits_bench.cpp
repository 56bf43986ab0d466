// The page of fifty habits that were checked in daily for ten years, one of them in detail, and a check-in
// with its streak.

#include "Account.h"
#include "habits/HabitReader.h"
#include "habits/KWHabitCheckHelper.h"
#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int habitCount = 50;
constexpr int daysKept = 3650;

struct HabitAccount : Account {
    QString kept;   // checked in on every day but today
    QString broken; // not on every tenth day

    HabitAccount()
    {
        kit->account().refreshCurrentUser();
        fill([this](ObjectContext &context) {
            for (int i = 0; i < habitCount; ++i)
                insertHabit(i, context);
        });
    }

    void insertHabit(int number, ObjectContext &context)
    {
        const Day today = clock.today();
        KWHabitModel model;
        model.userID = userID();
        model.name = u"Habit %1"_s.arg(number);
        model.startStamp = DayStamp::fromDay(today - std::chrono::days{daysKept});
        KWHabit &habit = context.insert<KWHabit>(model);
        (number % 2 ? broken : kept) = habit.sid();
        for (int day = 1; day <= daysKept; ++day) {
            if (number % 2 && day % 10 == 0) continue;
            KWHabitCheckinModel checkin;
            checkin.userID = userID();
            checkin.habitID = habit.sid();
            checkin.checkinStamp = DayStamp::fromDay(today - std::chrono::days{day});
            checkin.value = 1;
            checkin.status = KWHabitCheckinStatusDone;
            context.insert<KWHabitCheckin>(checkin);
        }
        habit.set(&KWHabitModel::longestStreak, number % 2 ? 9 : daysKept);
        habit.set(&KWHabitModel::currentStreak, number % 2 ? 9 : daysKept);
    }
};

HabitAccount &account()
{
    static HabitAccount account;
    return account;
}

void page(benchmark::State &state)
{
    HabitAccount &ours = account();
    for (auto _ : state)
        benchmark::DoNotOptimize(HabitReader::readPage(ours.userID(), **ours.kit->store().makeContext()));
}
BENCHMARK(page)->Unit(benchmark::kMillisecond);

void detail(benchmark::State &state)
{
    HabitAccount &ours = account();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            HabitReader::readDetail(ours.kept, ours.clock.today(), **ours.kit->store().makeContext()));
}
BENCHMARK(detail)->Unit(benchmark::kMillisecond);

// Checked in and taken back: each is a save of its own, so an iteration is two.
void checkTwice(benchmark::State &state, const QString &habit)
{
    HabitAccount &ours = account();
    KWHabitCheckHelper checks{*ours.kit};
    const int today = DayStamp::fromDay(ours.clock.today());
    for (auto _ : state)
        for (const HabitCheck each : {HabitCheck::Add, HabitCheck::TakeBack})
            if (!checks.check(habit, today, each)) state.SkipWithError("the check was not stored");
}
void checkOfAnEndlessStreak(benchmark::State &state) { checkTwice(state, account().kept); }
BENCHMARK(checkOfAnEndlessStreak)->Unit(benchmark::kMillisecond);
void checkOfAShortStreak(benchmark::State &state) { checkTwice(state, account().broken); }
BENCHMARK(checkOfAShortStreak)->Unit(benchmark::kMillisecond);

} // namespace
