#pragma once

#include "model/OrvaneKit.h"
#include "model/records/KWCalSubscriptionEventModel.h"
#include "support/ManualClock.h"

/// The id of a new subscribed calendar of who is signed in.
QString makeCalendar(OrvaneKit &kit, const char *name, const char *color = "");
/// Of a fixture that has a kit.
template <class Fixture>
QString makeCalendar(Fixture &fixture, const char *name, const char *color = "")
{
    return makeCalendar(fixture.kit(), name, color);
}

/// Makes events of subscribed calendars for tests:
/// `anEvent("Match").from("2030-05-01 18:00", "2030-05-01 20:00").in(calendar).savedIn(store)`. Days and
/// times are read in the zone given to `anEvent`.
class EventBuilder {
public:
    EventBuilder(const char *title, const char *zone);

    EventBuilder &from(const char *start, const char *end);
    /// All day, `last` included; one day without it.
    EventBuilder &on(const char *first, const char *last = nullptr);
    EventBuilder &repeating(const char *rule);
    EventBuilder &in(const QString &calendarID);

    KWCalSubscriptionEventModel model() const { return m_event; }
    /// Saves it and answers its id.
    QString savedIn(OrvaneKit &kit) const;
    template <class Fixture>
    QString savedIn(Fixture &fixture) const
    {
        return savedIn(fixture.kit());
    }

private:
    const char *m_zone;
    KWCalSubscriptionEventModel m_event;
};

inline EventBuilder anEvent(const char *title, const char *zone = "UTC") { return {title, zone}; }
