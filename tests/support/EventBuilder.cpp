#include "support/EventBuilder.h"

#include "model/records/KWCalSubscription.h"
#include "model/records/KWCalSubscriptionEvent.h"
#include "model/records/SortOrder.h"
#include "support/TaskBuilder.h"

namespace {

template <class Record>
QString inserted(typename Record::Model model, OrvaneKit &kit)
{
    model.userID = kit.account().currentUserID();
    const auto saved =
        KWCoreDataService{kit.manager()}.sync_save([&](ObjectContext &context) -> Result<void> {
            if constexpr (std::is_same_v<Record, KWCalSubscription>)
                model.sortOrder = sortOrderBehindAll<Record>(model.userID, context);
            model.sid = context.insert<Record>(model).sid();
            return {};
        });
    if (!saved) qFatal("%s", qUtf8Printable(saved.error().sentence));
    return model.sid;
}

} // namespace

QString makeCalendar(OrvaneKit &kit, const char *name, const char *color)
{
    KWCalSubscriptionModel model;
    model.name = QString::fromUtf8(name);
    model.color = QString::fromLatin1(color);
    return inserted<KWCalSubscription>(model, kit);
}

EventBuilder::EventBuilder(const char *title, const char *zone) : m_zone(zone)
{
    m_event.title = QString::fromUtf8(title);
    m_event.timeZone = QString::fromLatin1(zone);
}

EventBuilder &EventBuilder::from(const char *start, const char *end)
{
    m_event.startDate = at(start, m_zone);
    m_event.endDate = at(end, m_zone);
    return *this;
}

EventBuilder &EventBuilder::on(const char *first, const char *last)
{
    const KWTaskModel days = TaskBuilder{"", m_zone}.dueFrom(first, last ? last : first).model();
    m_event.startDate = days.startDate;
    m_event.endDate = days.endDate;
    m_event.isAllDay = true;
    return *this;
}

EventBuilder &EventBuilder::repeating(const char *rule)
{
    m_event.repeatRule = QString::fromLatin1(rule);
    return *this;
}

EventBuilder &EventBuilder::in(const QString &calendarID)
{
    m_event.subscriptionID = calendarID;
    return *this;
}

QString EventBuilder::savedIn(OrvaneKit &kit) const { return inserted<KWCalSubscriptionEvent>(m_event, kit); }
