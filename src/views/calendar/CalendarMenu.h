#pragma once

#include "model/records/KWCalendarDisplayConfigurationModel.h"

#include <QObject>

class QMenu;

/// The menu of the calendar: how a page is drawn, what else can be opened. Main thread.
class CalendarMenu : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    struct Now {
        KWCalendarDisplayConfigurationModel configuration;
        bool isTrayShown = false;
    };
    /// Adds what can be chosen to the menu, as it is now.
    void fill(QMenu &menu, const Now &now);

Q_SIGNALS:
    void chosen(const KWCalendarDisplayConfigurationModel &configuration);
    void trayToggled(bool isShown);
    void shownAsked(); ///< what is shown on it is to be chosen
    void dateAsked();
    void todayAsked();
};
