#include "model/store/SubscribedEvents.h"

#include "model/records/KWCalSubscriptionEvent.h"
#include "model/store/RecordMapper.h"
#include "model/store/StoreFailure.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

using Model = KWCalSubscriptionEventModel;
using Mapper = RecordMapper<Model>;

// What makes an event the same one as before. Several may have one key, of feeds that give no UID.
QString keyOf(const Model &event)
{
    const auto date = [](const std::optional<Instant> &moment) {
        return moment ? QString::number(moment->time_since_epoch().count()) : QString{};
    };
    const QString place = event.uid.isEmpty() ? date(event.startDate) + u' ' + event.title : event.uid;
    return date(event.recurrenceID) + u' ' + place;
}

// The rows are written past the records: there are many.
class EventReplacement {
public:
    EventReplacement(const QString &userID, ObjectContext &context)
        : m_userID(userID), m_context(context), m_identifiers(context.clock().now())
    {
    }

    /// Those that are stored.
    void know(const QList<Model> &stored)
    {
        // From the last on, so that equal keys are taken in the order in which they were stored.
        for (auto each = stored.crbegin(); each != stored.crend(); ++each)
            m_stored[keyOf(*each)].append(*each);
    }

    void take(Model event)
    {
        const auto same = m_stored.find(keyOf(event));
        const bool isKnown = same != m_stored.end() && !same->isEmpty();
        const Model before = isKnown ? same->takeLast() : fresh();
        static_cast<KWSynchronizableFields &>(event) = before;
        if (isKnown && event == before) return;
        event.modifiedTime = m_context.clock().now();
        if (isKnown)
            Mapper::update(connection(), event, difference(before, event));
        else
            Mapper::insert(connection(), event);
    }

    void removeTheRest()
    {
        for (const QList<Model> &left : std::as_const(m_stored))
            for (const Model &each : left)
                Mapper::remove(connection(), each.sid);
    }

    bool changesAnything() const { return m_changesAnything; }

private:
    Model fresh()
    {
        Model model;
        model.sid = m_identifiers.next();
        model.userID = m_userID;
        model.createdTime = m_context.clock().now();
        return model;
    }

    Connection &connection()
    {
        m_changesAnything = true;
        return m_context.bulkWriting();
    }

    const QString m_userID;
    ObjectContext &m_context;
    RecordIdentifiers m_identifiers;
    QHash<QString, QList<Model>> m_stored;
    bool m_changesAnything = false;
};

} // namespace

Result<bool> replaceEvents(const QString &subscriptionID, const QString &userID, std::vector<Model> events,
                           ObjectContext &context)
{
    EventReplacement replacement{userID, context};
    replacement.know(context.models<KWCalSubscriptionEvent>(
        {.where = "subscriptionID = ?", .values = {subscriptionID}, .orderBy = "id"}));
    if (const Result<void> read = context.readResult(); !read) return read.error();
    try {
        for (Model &each : events) {
            each.subscriptionID = subscriptionID;
            replacement.take(std::move(each));
        }
        replacement.removeTheRest();
        return replacement.changesAnything();
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}
