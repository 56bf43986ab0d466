#pragma once

#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"
#include "model/events/PendingDeletes.h"

#include <QObject>

#include <memory>

class CalendarTray;
class OrvaneKit;

/// Reads the tasks without a date, but for those of lists that the calendar hides, in the background, as long
/// as the tray is shown. Main thread.
class CalendarTrayReader : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    CalendarTrayReader(CalendarTray &tray, OrvaneKit &kit);

Q_SIGNALS:
    void failed(const QString &sentence);

private:
    void read();

    CalendarTray &m_tray;
    OrvaneKit &m_kit;
    PendingDeletes m_pendingDeletes;
    KWNotificationCenter::Observation m_observation;
    KWEventBus::Registration m_registration;
    std::shared_ptr<int> m_latest; // the reading that counts
};
