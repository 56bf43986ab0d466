#include "focus/PomoFixture.h"

#include "model/events/NotificationNames.h"
#include "model/records/DayStamp.h"
#include "model/records/KWFocusSlice.h"
#include "model/records/KWFocusSummary.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitFocus.h"
#include "model/records/KWPomodoro.h"
#include "model/records/KWTask.h"
#include "model/settings/KWPomoSettingsManager.h"
#include "support/TaskBuilder.h"

#include <QLocale>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr const char *stateNames[] = {"idle",           "foucsing",       "paused",
                                      "waitingToRelax", "short_relaxing", "long_relaxing"};

QString minutesText(std::int64_t seconds)
{
    return u"%1:%2"_s.arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char{'0'});
}

// "25m", "31s", "-3h"; nothing for another text.
std::optional<seconds> durationOf(const QString &text)
{
    bool isNumber = false;
    const int number = text.chopped(1).toInt(&isNumber);
    if (!isNumber) return std::nullopt;
    switch (text.back().toLatin1()) {
    case 's':
        return seconds{number};
    case 'm':
        return minutes{number};
    case 'h':
        return hours{number};
    default:
        return std::nullopt;
    }
}

} // namespace

PomoFixture::PomoFixture()
    : pomo({store.kit(),
            store.clock,
            association,
            coordinator,
            journal,
            recordQueue,
            {messages, popover, questions}})
    , coordinator(
          {store.kit(), association, pomo, stopwatch, journal, recordQueue, {messages, popover, questions}})
{
    stopwatch.restore();
    for (const char *each : {"A", "B"})
        m_targets[QString::fromLatin1(each)] = FocusTarget::task(aTask(each).savedIn(store));
    KWHabitModel habit;
    habit.name = u"H"_s;
    habit.userID = store.userID();
    m_targets[u"H"_s] = FocusTarget::habit(store.context().insert<KWHabit>(habit).sid());
    if (!store.context().save()) qFatal("the habit could not be saved");
}

FocusTarget PomoFixture::targetOf(const QString &name) const
{
    if (name == "none"_L1) return {};
    if (!m_targets.contains(name)) qFatal("no target %s", qUtf8Printable(name));
    return m_targets[name];
}

QString PomoFixture::idOf(const QString &name) const { return targetOf(name).entityID; }

void PomoFixture::save(const KWPomoSettingsModel &settings)
{
    KWPomoSettingsManager manager{store.kit().manager(), store.kit().center(), store.userID()};
    if (const auto saved = manager.save(settings); !saved)
        qFatal("%s", qUtf8Printable(saved.error().sentence));
}

void PomoFixture::set(int KWPomoSettingsModel::*member, int value)
{
    KWPomoSettingsModel settings = pomo.settings();
    settings.*member = value;
    save(settings);
}

void PomoFixture::set(bool KWPomoSettingsModel::*member, bool value)
{
    KWPomoSettingsModel settings = pomo.settings();
    settings.*member = value;
    save(settings);
}

void PomoFixture::does(const QString &words)
{
    for (const QString &each : words.split(u' ', Qt::SkipEmptyParts))
        step(each);
}

void PomoFixture::step(const QString &word)
{
    const auto after = [&word](QLatin1StringView head) -> std::optional<QString> {
        return word.startsWith(head) ? std::optional{word.sliced(head.size())} : std::nullopt;
    };
    const QHash<QString, std::function<void()>> simple{
        {u"start"_s, [this] { pomo.startFocus(std::nullopt, 0, KWPomoRunningManager::Length::Default); }},
        {u"oc_start"_s, [this] { pomo.oc_startFocus(); }},
        {u"pause"_s, [this] { pomo.pause(); }},
        {u"resume"_s, [this] { pomo.resume(); }},
        {u"command"_s, [this] { coordinator.startOrAbandonPomo(); }},
        {u"stop"_s, [this] { coordinator.stopPomo(); }},
        {u"abandon"_s, [this] { pomo.abandonFocusing(); }},
        {u"relax"_s, [this] { pomo.startRelaxing(); }},
        {u"stopwatch"_s, [this] { coordinator.startStopWatch(); }},
        {u"stopwatch-pause"_s, [this] { coordinator.pauseStopWatch(); }},
        {u"stopwatch-stop"_s, [this] { coordinator.stopStopWatch(); }},
        {u"yes"_s, [this] { std::exchange(questions.answer, {})(0); }},
        {u"no"_s, [this] { std::exchange(questions.answer, {})(1); }},
        {u"belongs"_s, [this] { questions.answerInWindow(0); }},
        {u"not-belongs"_s, [this] { questions.answerInWindow(1); }},
        {u"disable"_s, [this] { set(&KWPomoSettingsModel::isPomoEnabled, false); }},
        {u"enable"_s, [this] { set(&KWPomoSettingsModel::isPomoEnabled, true); }},
        {u"auto-pomo"_s, [this] { set(&KWPomoSettingsModel::isAutoPomo, true); }},
        {u"auto-break"_s, [this] { set(&KWPomoSettingsModel::isAutoBreak, true); }},
        {u"seconds"_s, [this] { store.kit().defaults().set(Settings::pomoSettingsTimeUnitIsSecond, true); }},
        {u"sign-out"_s, [this] { (void)store.account().signOut(); }},
        {u"sign-in"_s, [this] { (void)store.account().signInLocally(QLocale::c()); }}};
    if (simple.contains(word)) return simple[word]();
    if (const auto duration = durationOf(word)) return store.clock.advance(*duration);
    if (const auto length = after("sleep-"_L1)) {
        store.kit().center().post(WorkspaceWillSleepNotification);
        store.clock.sleep(durationOf(*length).value());
        return store.kit().center().post(WorkspaceDidWakeNotification);
    }
    if (const auto by = after("clock-"_L1))
        return store.clock.setNow(store.clock.now() + durationOf(*by).value());
    if (const auto key = after("press-"_L1)) return messages.onAction(*key);
    if (const auto name = after("delete-"_L1))
        return saved(store, [&](ObjectContext &context) { context.find<KWTask>(idOf(*name))->markDelete(); });
    if (const auto name = after("restore-"_L1))
        return saved(store, [&](ObjectContext &context) {
            context.find<KWTask>(idOf(*name))->set(&KWTaskModel::isDeleted, false);
        });
    if (const auto name = after("target-"_L1)) return coordinator.setTarget(targetOf(*name));
    if (const auto name = after("stopwatch-"_L1)) return coordinator.startStopWatch(targetOf(*name));
    if (const auto length = after("start-length-"_L1)) return pomo.startFocus(length->toLongLong());
    if (const auto name = after("start-"_L1))
        return pomo.startFocus(targetOf(*name), 0, KWPomoRunningManager::Length::Default);
    const std::pair<QLatin1StringView, int KWPomoSettingsModel::*> numbers[] = {
        {"cycle-"_L1, &KWPomoSettingsModel::autoPomodoroCycle},
        {"interval-"_L1, &KWPomoSettingsModel::longBreakInterval},
        {"pomo-"_L1, &KWPomoSettingsModel::pomoDuration},
        {"short-"_L1, &KWPomoSettingsModel::shortBreakDuration},
        {"long-"_L1, &KWPomoSettingsModel::longBreakDuration}};
    for (const auto &[name, member] : numbers)
        if (const auto number = after(name)) return set(member, number->toInt());
    qFatal("no step %s", qUtf8Printable(word));
}

QString PomoFixture::state() const
{
    return u"%1 %2"_s.arg(QLatin1StringView{stateNames[int(pomo.state())]}).arg(pomo.currentCountDown());
}

QString PomoFixture::records()
{
    const auto time = [this](Instant instant) {
        const auto local = store.clock.zone().toLocal(instant);
        const auto ofDay = floor<minutes>(local - floor<days>(local));
        return u"%1:%2"_s.arg(ofDay.count() / 60, 2, 10, QLatin1Char{'0'})
            .arg(ofDay.count() % 60, 2, 10, QLatin1Char{'0'});
    };
    QStringList records;
    for (const KWPomodoro *each :
         store.context().fetch<KWPomodoro>({.where = "isDeleted = 0", .orderBy = "startDate, id"})) {
        const KWPomodoroModel &session = each->model();
        QString text = time(*session.startDate) + u'-' + time(*session.endDate);
        for (const KWFocusSlice *slice : store.context().fetch<KWFocusSlice>(
                 {.where = "pomodoroID = ?", .values = {session.sid}, .orderBy = "startDate"})) {
            const KWFocusSliceModel &model = slice->model();
            const auto length = round<seconds>(*model.endDate - *model.startDate);
            text +=
                u' ' + (model.title.isEmpty() ? u"none"_s : model.title) + u'=' + minutesText(length.count());
        }
        if (session.pauseDuration > 0) text += u" pause="_s + minutesText(session.pauseDuration);
        records.append(text);
    }
    return records.isEmpty() ? u"-"_s : records.join(u", "_s);
}

QString PomoFixture::creditOf(const QString &name)
{
    const FocusTarget target = targetOf(name);
    if (target.kind == FocusTarget::Kind::Habit) {
        const Day today = store.clock.zone().dayOf(store.clock.now());
        const KWHabitFocus *focus =
            store.context().find<KWHabit>(target.entityID)->focusAtDateStamp(DayStamp::fromDay(today));
        return focus ? minutesText((*focus)->duration) : u"-"_s;
    }
    const auto summaries = store.context().find<KWTask>(target.entityID)->focusSummaries();
    if (summaries.isEmpty()) return u"-"_s;
    const KWFocusSummaryModel &summary = summaries.first()->model();
    return u"%1 %2"_s.arg(summary.pomoCount).arg(minutesText(summary.pomoDuration));
}
