#include "views/calendar/CalendarMenu.h"

#include "model/settings/KWLocalizedString.h"

#include <QMenu>

void CalendarMenu::fill(QMenu &menu, const Now &now)
{
    using Configuration = KWCalendarDisplayConfigurationModel;
    const std::pair<const char *, bool Configuration::*> switches[] = {
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
    menu.addSeparator();
    connect(menu.addAction(KWLocalizedString("Shown…")), &QAction::triggered, this,
            &CalendarMenu::shownAsked);
    QAction *tray = menu.addAction(KWLocalizedString("Tasks Without a Date"));
    tray->setCheckable(true);
    tray->setChecked(now.isTrayShown);
    connect(tray, &QAction::triggered, this, &CalendarMenu::trayToggled);
    menu.addSeparator();
    connect(menu.addAction(KWLocalizedString("Today")), &QAction::triggered, this, &CalendarMenu::todayAsked);
    connect(menu.addAction(KWLocalizedString("Go to Date…")), &QAction::triggered, this,
            &CalendarMenu::dateAsked);
}
