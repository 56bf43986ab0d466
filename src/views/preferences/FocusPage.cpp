#include "views/preferences/FocusPage.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/Stepper.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int minutesOfHour = 60;
constexpr int mostGoalHours = 24;
constexpr int mostGoalMinutes = 1440;

} // namespace

FocusPage::FocusPage(Preferences &preferences, const KWPomoSettingsManager &settings)
    : PreferencesPage("focusPage", KWLocalizedString("Focus"), preferences), m_settings(settings)
{
    addSwitch("isPomoEnabled", KWLocalizedString("Focus"), &Model::isPomoEnabled,
              KWLocalizedString("The page of focus stands in the sidebar."));
    addHeading(KWLocalizedString("Lengths in minutes"));
    addNumber("pomoDuration", KWLocalizedString("Pomo"), &Model::pomoDuration, 5, MAX_POMO_DURATION_MINUTES);
    addNumber("shortBreakDuration", KWLocalizedString("Short break"), &Model::shortBreakDuration, 1, 60);
    addNumber("longBreakDuration", KWLocalizedString("Long break"), &Model::longBreakDuration, 1, 60);
    addNumber("longBreakInterval", KWLocalizedString("Pomos to a long break"), &Model::longBreakInterval, 1,
              60);
    addHeading(KWLocalizedString("By itself"));
    addSwitch("isAutoPomo", KWLocalizedString("Start the next Pomo"), &Model::isAutoPomo,
              KWLocalizedString("As soon as a break is over."));
    addSwitch("isAutoBreak", KWLocalizedString("Start the break"), &Model::isAutoBreak,
              KWLocalizedString("As soon as a Pomo is over."));
    m_cycle = &addNumber("autoPomodoroCycle", KWLocalizedString("Pomos in a row"), &Model::autoPomodoroCycle,
                         2, 10, KWLocalizedString("With both of these on, after so many nothing starts."));
    addHeading(KWLocalizedString("Goals of a day"));
    addNumber("dailyPomoGoal", KWLocalizedString("Pomos"), &Model::dailyPomoGoal, 0, 20,
              KWLocalizedString("0 for no goal."));
    addFocusGoal();
    endRows();
    showWhatDepends();
}

Stepper &FocusPage::addNumber(const char *name, const QString &label, int Model::*field, int least, int most,
                              const QString &hint)
{
    auto *stepper = new Stepper{name, label, least, most};
    const auto showStored = [this, stepper, field] { stepper->setValue(m_settings.settings().*field); };
    showStored();
    connect(stepper, &Stepper::valueChanged, this, [this, field, showStored](int value) {
        report(change([=](Model &settings) { settings.*field = value; }), showStored);
    });
    addRow((QByteArray{name} + "Row").constData(), label, *stepper, hint);
    return *stepper;
}

void FocusPage::addSwitch(const char *name, const QString &label, bool Model::*field, const QString &hint)
{
    PreferencesPage::addSwitch(
        name, label, [this, field] { return m_settings.settings().*field; },
        [this, field](bool isOn) {
            const Result<void> saved = change([=](Model &settings) { settings.*field = isOn; });
            showWhatDepends();
            return saved;
        },
        hint);
}

// One number of minutes, shown as two: a goal may be a whole day of hours and as many minutes again.
void FocusPage::addFocusGoal()
{
    auto *wholeHours = new Stepper{"dailyFocusHours", KWLocalizedString("Hours of focus"), 0, mostGoalHours};
    auto *rest = new Stepper{"dailyFocusMinutes", KWLocalizedString("Minutes of focus"), 0, mostGoalMinutes};
    const auto showStored = [this, wholeHours, rest] {
        const int goal = m_settings.settings().dailyFocusGoal;
        const int shown = std::min(mostGoalHours, goal / minutesOfHour);
        wholeHours->setValue(shown);
        rest->setValue(goal - shown * minutesOfHour);
    };
    showStored();
    const auto save = [this, wholeHours, rest, showStored] {
        const int goal = wholeHours->value() * minutesOfHour + rest->value();
        report(change([goal](Model &settings) { settings.dailyFocusGoal = goal; }), showStored);
    };
    connect(wholeHours, &Stepper::valueChanged, this, save);
    connect(rest, &Stepper::valueChanged, this, save);
    addRow("dailyFocusHoursRow", KWLocalizedString("Hours of focus"), *wholeHours);
    addRow("dailyFocusMinutesRow", KWLocalizedString("and minutes"), *rest);
}

Result<void> FocusPage::change(const std::function<void(Model &)> &edit)
{
    Model settings = m_settings.settings();
    edit(settings);
    return m_settings.save(settings);
}

void FocusPage::showWhatDepends()
{
    const Model settings = m_settings.settings();
    if (m_cycle) m_cycle->setEnabled(settings.isAutoPomo && settings.isAutoBreak);
}
