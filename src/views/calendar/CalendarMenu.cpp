#include "views/calendar/CalendarMenu.h"

#include "model/settings/KWLocalizedString.h"

#include <QMenu>

void CalendarMenu::fill(QMenu &menu, const Now &now)
{
    using Configuration = KWCalendarDisplayConfigurationModel;
    const std::pair<const char *, bool Configuration::*> switches[] = {
        {"Show Completed", &Configuration::showsCompleted},
        {"Show Checklist Items", &Configuration::showsChecklistItems},
        {"Show Repeats", &Configuration::showsRepeats},
        {"Show Weekends", &Configuration::showsWeekends},
        {"Show Week Numbers", &Configuration::showsWeekNumbers},
    };
    for (const auto &[title, part] : switches) {
        QAction *action = menu.addAction(KWLocalizedString(title));
        action->setCheckable(true);
        action->setChecked(now.configuration.*part);
        connect(action, &QAction::triggered, this,
                [this, configuration = now.configuration, part = part](bool isOn) {
                    Configuration other = configuration;
                    other.*part = isOn;
                    Q_EMIT chosen(other);
                });
    }
    if (!now.calendars.isEmpty()) addCalendars(*menu.addMenu(KWLocalizedString("Calendars")), now);
    menu.addSeparator();
    QAction *tray = menu.addAction(KWLocalizedString("Tasks Without a Date"));
    tray->setCheckable(true);
    tray->setChecked(now.isTrayShown);
    connect(tray, &QAction::triggered, this, &CalendarMenu::trayToggled);
    connect(menu.addAction(KWLocalizedString("Go to Date…")), &QAction::triggered, this,
            &CalendarMenu::dateAsked);
}

void CalendarMenu::addCalendars(QMenu &menu, const Now &now)
{
    for (const Calendar &each : now.calendars) {
        QAction *action = menu.addAction(QString{each.name}.replace(u'&', QStringLiteral("&&")));
        action->setCheckable(true);
        action->setChecked(!now.configuration.hiddenCalendars.contains(each.id));
        connect(action, &QAction::triggered, this,
                [this, configuration = now.configuration, id = each.id](bool isShown) {
                    KWCalendarDisplayConfigurationModel other = configuration;
                    other.hiddenCalendars.removeAll(id);
                    if (!isShown) other.hiddenCalendars.append(id);
                    Q_EMIT chosen(other);
                });
    }
}
