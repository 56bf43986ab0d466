#include "views/preferences/GeneralPages.h"

#include "model/records/KWSmartProject.h"
#include "model/records/KWUserSettings.h"
#include "model/records/PriorityNames.h"
#include "model/settings/ClockFormat.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/KWTaskFinder.h"
#include "views/theme/Metrics.h"
#include "views/theme/ThemeConfigurator.h"
#include "views/wording/DateWording.h"

#include <QLabel>
#include <QLocale>
#include <QTimeEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int timeWidth = 96;

QString preferenceText(const char *key) { return KWLocalizedString(key); }

QString reminderText(const QStringList &triggers)
{
    return KWLocalizedString("%1 reminders").arg(triggers.size());
}

} // namespace

GeneralPage::GeneralPage(Preferences &preferences, LoginItemPort &loginItem)
    : PreferencesPage("generalPage", preferenceText("General"), preferences)
{
    addChoice<QString>(
        "theme", preferenceText("Appearance"),
        {{preferenceText("As the desktop"), u"system"_s},
         {preferenceText("Light"), u"light"_s},
         {preferenceText("Dark"), u"dark"_s}},
        [&preferences] { return preferences.value(Settings::theme); },
        [&preferences](const QString &theme) {
            const Result<void> saved = preferences.set(Settings::theme, theme);
            if (saved) ThemeConfigurator::shared().setMode(ThemeConfigurator::modeNamed(theme));
            return saved;
        });
    const QLocale locale;
    auto *language = new QLabel{locale.language() == QLocale::C ? u"English"_s : locale.nativeLanguageName()};
    addRow("language", preferenceText("Language"), *language,
           preferenceText("The language and region of the desktop."));
    if (loginItem.isAvailable())
        addChoice<int>(
            "loginStart", preferenceText("Start with the desktop"),
            {{preferenceText("No"), int(LoginStart::Off)},
             {preferenceText("With the window"), int(LoginStart::WithWindow)},
             {preferenceText("In the background"), int(LoginStart::InBackground)}},
            [&loginItem] { return int(loginItem.start()); },
            [&loginItem](const int &start) { return loginItem.setStart(LoginStart(start)); },
            preferenceText("In the background, reminders come and the window opens when you ask for it."));
    QComboBox &badge =
        addChoice<int>("badgeType", preferenceText("Number on the icon"), Settings::badgeTypeShownInDock,
                       {{preferenceText("None"), int(KWBadgeType::None)},
                        {preferenceText("Today"), int(KWBadgeType::Today)},
                        {preferenceText("Overdue and today"), int(KWBadgeType::OverdueAndToday)},
                        {preferenceText("Inbox"), int(KWBadgeType::Inbox)},
                        {preferenceText("All open tasks"), int(KWBadgeType::All)}},
                       preferenceText("Where the desktop shows numbers on icons."));
    connect(&badge, &QComboBox::activated, this, &GeneralPage::badgeChanged);
    endRows();
}

NotificationsPage::NotificationsPage(Preferences &preferences)
    : PreferencesPage("notificationsPage", preferenceText("Notifications"), preferences)
{
    const auto setting = [this, &preferences](const char *name, const char *label, const Setting<bool> &which,
                                              const char *hint) {
        addSwitch(
            name, preferenceText(label), [&preferences, &which] { return preferences.value(which); },
            [&preferences, &which](bool isOn) { return preferences.set(which, isOn); }, preferenceText(hint));
    };
    setting("notificationsEnabled", "Show reminders", Settings::notificationsEnabled,
            "Without them, tasks become due silently.");
    setting("notificationSound", "Play a sound", Settings::notificationSound,
            "As far as the desktop plays sounds for messages.");

    addHeading(preferenceText("Reminders of new tasks"));
    addReminders("defaultReminder", preferenceText("With a time"), &KWUserSettingsModel::defaultReminderRules,
                 {{preferenceText("None"), {}},
                  {preferenceText("On time"), {u"TRIGGER:PT0S"_s}},
                  {preferenceText("5 minutes before"), {u"TRIGGER:-PT5M"_s}},
                  {preferenceText("30 minutes before"), {u"TRIGGER:-PT30M"_s}},
                  {preferenceText("1 hour before"), {u"TRIGGER:-PT1H"_s}},
                  {preferenceText("1 day before"), {u"TRIGGER:-P1D"_s}}});
    const QString nine = DateWording::timeOfDay(LocalTime{std::chrono::hours{9}}, QLocale{});
    addReminders("allDayReminder", preferenceText("Without a time"), &KWUserSettingsModel::allDayReminders,
                 {{preferenceText("None"), {}},
                  {preferenceText("On the day at %1").arg(nine), {u"TRIGGER:P0DT9H0M0S"_s}},
                  {preferenceText("The day before at %1").arg(nine), {u"TRIGGER:-P0DT15H0M0S"_s}}});
    endRows();
}

void NotificationsPage::addReminders(const char *name, const QString &label,
                                     QStringList KWUserSettingsModel::*field,
                                     QList<Choice<QStringList>> choices)
{
    // What was set elsewhere can be kept.
    const QStringList stored = preferences().settings().*field;
    if (!offers(choices, stored)) choices.append({reminderText(stored), stored});
    addChoice<QStringList>(
        name, label, choices, [this, field] { return preferences().settings().*field; },
        [this, field](const QStringList &reminders) { return preferences().set(field, reminders); });
}

DateTimePage::DateTimePage(Preferences &preferences)
    : PreferencesPage("dateTimePage", preferenceText("Date and Time"), preferences)
{
    QList<Choice<int>> weekdays;
    const auto addWeekday = [&weekdays](int day) {
        if (offers(weekdays, day)) return;
        weekdays.append({QLocale{}.dayName(day == 1 ? 7 : day - 1, QLocale::LongFormat), day});
    };
    for (const int day : {2, 7, 1}) // Monday, Saturday, Sunday
        addWeekday(day);
    addWeekday(preferences.settings().firstWeekday);
    addChoice<int>(
        "firstWeekday", preferenceText("Weeks begin on"), weekdays,
        [&preferences] { return preferences.settings().firstWeekday; },
        [&preferences](const int &day) { return preferences.set(&KWUserSettingsModel::firstWeekday, day); });
    const QComboBox &clock = addChoice<QString>("clockFormat", preferenceText("Clock"), Settings::clockFormat,
                                                {{preferenceText("As the desktop"), u"system"_s},
                                                 {preferenceText("24 hours"), u"24"_s},
                                                 {preferenceText("12 hours"), u"12"_s}});
    connect(&clock, &QComboBox::activated, this, [this] {
        for (QTimeEdit *each : findChildren<QTimeEdit *>())
            each->setDisplayFormat(ClockFormat::pattern(QLocale{}));
    });
    addSwitch(
        "timeZoneOption", preferenceText("Time zones of tasks"),
        [&preferences] { return preferences.settings().isTimeZoneOptionEnabled; },
        [&preferences](bool isOn) {
            return preferences.set(&KWUserSettingsModel::isTimeZoneOptionEnabled, isOn);
        },
        preferenceText("Choose the time zone when you set the time of a task."));

    addHeading(preferenceText("When you type"));
    addSmartTime("smartTimeForMorning", preferenceText("“morning” means"),
                 &KWUserSettingsModel::smartTimeForMorning);
    addSmartTime("smartTimeForAfternoon", preferenceText("“afternoon” means"),
                 &KWUserSettingsModel::smartTimeForAfternoon);
    addSmartTime("smartTimeForEvening", preferenceText("“evening” means"),
                 &KWUserSettingsModel::smartTimeForEvening);
    addSmartTime("smartTimeForNight", preferenceText("“night” means"),
                 &KWUserSettingsModel::smartTimeForNight);
    endRows();
}

void DateTimePage::addSmartTime(const char *name, const QString &label, int KWUserSettingsModel::*field)
{
    auto *edit = new QTimeEdit;
    edit->setDisplayFormat(ClockFormat::pattern(QLocale{}));
    edit->setKeyboardTracking(false);
    edit->setButtonSymbols(QAbstractSpinBox::NoButtons);
    edit->setAlignment(Qt::AlignCenter);
    edit->setFixedWidth(Metrics::scaled(timeWidth));
    const auto showStored = [this, edit, field] {
        const QSignalBlocker quiet{edit};
        edit->setTime(QTime::fromMSecsSinceStartOfDay(preferences().settings().*field * 60'000));
    };
    showStored();
    connect(edit, &QTimeEdit::timeChanged, this, [this, field, showStored](QTime time) {
        report(preferences().set(field, time.msecsSinceStartOfDay() / 60'000), showStored);
    });
    addRow(name, label, *edit);
}

NewTasksPage::NewTasksPage(Preferences &preferences)
    : PreferencesPage("newTasksPage", preferenceText("New Tasks"), preferences)
{
    QList<Choice<QString>> lists;
    for (const Preferences::NamedList &each : preferences.listsForNewTasks())
        lists.append({each.name, lists.isEmpty() ? QString{} : each.id});
    addChoice<QString>(
        "defaultList", preferenceText("List"), lists,
        [&preferences] { return preferences.settings().defaultListID; },
        [&preferences](const QString &listID) {
            return preferences.set(&KWUserSettingsModel::defaultListID, listID);
        },
        preferenceText("Where a task goes that is typed outside of a list."));
    QList<Choice<int>> dates{{preferenceText("None"), -1},
                             {preferenceText("Today"), 0},
                             {preferenceText("Tomorrow"), 1},
                             {preferenceText("The day after tomorrow"), 2},
                             {preferenceText("In a week"), 7}};
    const int storedDate = std::max(-1, preferences.value(Settings::newTaskDateOffset));
    if (!offers(dates, storedDate)) dates.append({preferenceText("In %1 days").arg(storedDate), storedDate});
    addChoice<int>("newTaskDate", preferenceText("Date"), Settings::newTaskDateOffset, dates);
    QList<Choice<int>> priorities;
    for (const KWTaskPriority each : KWTaskPriorities)
        priorities.append({displayName(each), each});
    addChoice<int>("newTaskPriority", preferenceText("Priority"), Settings::newTaskPriority, priorities);
    addChoice<QString>(
        "newTaskPosition", preferenceText("Place in the list"), Settings::newTaskPosition,
        {{preferenceText("At the top"), u"top"_s}, {preferenceText("At the end"), u"bottom"_s}});

    addHeading(preferenceText("Smart recognition"));
    addRecognition("recognisesDates", "Recognise dates in titles",
                   &KWSmartRecognitionConfiguration::dateEnabled,
                   "Without it, a date counts only after “*”.");
    addRecognition("removesDate", "Remove the date from the title",
                   &KWSmartRecognitionConfiguration::removesDate,
                   "“Call the bank tomorrow” is saved as “Call the bank”.");
    addRecognition("removesTag", "Remove tags from the title", &KWSmartRecognitionConfiguration::removesTag,
                   "The task has its tags either way.");
    endRows();
}

void NewTasksPage::addRecognition(const char *name, const char *label,
                                  bool KWSmartRecognitionConfiguration::*field, const char *hint)
{
    addSwitch(
        name, preferenceText(label), [this, field] { return preferences().recognition().*field; },
        [this, field](bool isOn) { return preferences().set(field, isOn); }, preferenceText(hint));
}

HabitsPage::HabitsPage(Preferences &preferences)
    : PreferencesPage("habitsPage", preferenceText("Habits"), preferences)
{
    const auto addShown = [&](const char *name, const char *label, bool KWUserSettingsModel::*field,
                              const char *hint) {
        addSwitch(
            name, preferenceText(label), [&preferences, field] { return preferences.settings().*field; },
            [&preferences, field](bool isOn) { return preferences.set(field, isOn); }, preferenceText(hint));
    };
    addShown("habitsInToday", "Show in Today", &KWUserSettingsModel::showsInToday,
             "The habits of the day stand below the tasks.");
    addShown("habitsInCalendar", "Show in the calendar", &KWUserSettingsModel::showsInCalendar,
             "The habits of a day stand above its hours.");
    QList<Choice<int>> hours;
    for (int hour = 0; hour <= KWUserSettings::latestHabitDayStart; ++hour)
        hours.append({hour == 0 ? preferenceText("At midnight")
                                : preferenceText("At %1").arg(
                                      DateWording::timeOfDay(LocalTime{std::chrono::hours{hour}}, QLocale{})),
                      hour});
    addChoice<int>(
        "habitDayStart", preferenceText("The day begins"), hours,
        [&preferences] { return preferences.settings().habitDayStart; },
        [&preferences](const int &hour) {
            return preferences.set(&KWUserSettingsModel::habitDayStart, hour);
        },
        preferenceText("What is checked in before then belongs to the day before."));
    endRows();
}

SmartListsPage::SmartListsPage(Preferences &preferences)
    : PreferencesPage("smartListsPage", preferenceText("Smart Lists"), preferences)
{
    QList<const KWSmartProject *> shown;
    for (const KWSmartProject *each : KWSmartProject::configurable())
        if (each->isListOfTasks()) shown.append(each);
    shown << &KWSmartProject::summary() << &KWSmartProject::habit() << &KWSmartProject::tag()
          << &KWSmartProject::filter();
    for (const KWSmartProject *each : std::as_const(shown)) {
        addChoice<int>(
            each->identifier().toLatin1().constData(), each->displayName(),
            {{preferenceText("Shown"), int(KWSmartProjectVisibilityShown)},
             {preferenceText("Shown if not empty"), int(KWSmartProjectVisibilityShownIfNotEmpty)},
             {preferenceText("Hidden"), int(KWSmartProjectVisibilityHidden)}},
            [&preferences, each] { return int(preferences.visibilityOf(*each)); },
            [&preferences, each](const int &visibility) {
                return preferences.setVisibility(KWSmartProjectVisibility(visibility), *each);
            });
    }
    endRows();
}
