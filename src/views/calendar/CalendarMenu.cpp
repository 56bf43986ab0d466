#include "views/calendar/CalendarMenu.h"

#include "model/settings/KWLocalizedString.h"

#include <QMenu>

void CalendarMenu::fill(QMenu &menu, const KWCalendarDisplayConfigurationModel &now, bool isTrayShown)
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
        action->setChecked(now.*part);
        connect(action, &QAction::triggered, this, [this, now, part = part](bool isOn) {
            Configuration other = now;
            other.*part = isOn;
            Q_EMIT chosen(other);
        });
    }
    menu.addSeparator();
    QAction *tray = menu.addAction(KWLocalizedString("Tasks Without a Date"));
    tray->setCheckable(true);
    tray->setChecked(isTrayShown);
    connect(tray, &QAction::triggered, this, &CalendarMenu::trayToggled);
    connect(menu.addAction(KWLocalizedString("Go to Date…")), &QAction::triggered, this,
            &CalendarMenu::dateAsked);
}
