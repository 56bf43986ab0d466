#pragma once

#include "corvexkit/time/CXClock.h"
#include "views/controls/PopupFrame.h"

#include <QPointer>

class KWUserDefaults;

/// Says, when a date is recognised for the first time, what its mark is and how it is taken back. Shown
/// once in the life of the preferences, for three seconds. Main thread.
class DateTip {
public:
    DateTip(QWidget &field, CXClock &clock, KWUserDefaults &defaults);
    ~DateTip();

    bool isDue() const;
    /// Points at `recognised`, which is in the coordinates of the screen.
    void show(const QRect &recognised);
    void dismissDateParsingTips();

private:
    class Frame;

    QWidget &m_field;
    CXClock &m_clock;
    KWUserDefaults &m_defaults;
    QPointer<QWidget> m_frame;
    ClockCall m_end;
};
