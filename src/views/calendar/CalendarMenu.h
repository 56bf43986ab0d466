#pragma once

#include "model/records/KWCalendarDisplayConfigurationModel.h"

#include <QObject>

class QMenu;

/// What the calendar shows, as a menu of things that are on or off. Main thread.
class CalendarMenu : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    struct Calendar {
        QString id;
        QString name;
    };
    struct Now {
        KWCalendarDisplayConfigurationModel configuration;
        QList<Calendar> calendars; ///< that are subscribed to
        bool isTrayShown = false;
    };
    /// Adds what can be chosen to the menu, as it is now.
    void fill(QMenu &menu, const Now &now);

Q_SIGNALS:
    void chosen(const KWCalendarDisplayConfigurationModel &configuration);
    void trayToggled(bool isShown);
    void dateAsked();

private:
    void addCalendars(QMenu &menu, const Now &now);
};
