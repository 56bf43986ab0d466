#pragma once

#include "model/records/KWChecklistItemModel.h"
#include "model/records/KWTaskModel.h"
#include "support/StoreFixture.h"

/// Makes tasks for tests: `aTask("Pay rent").dueOn("2030-04-01").tagged("errand").in(list).savedIn(store)`.
/// Days and times are read in the zone given to `aTask`; without a list, the task goes to the inbox.
class TaskBuilder {
public:
    TaskBuilder(const char *title, const char *zone);

    /// All day.
    TaskBuilder &dueOn(const char *day);
    /// All day, `last` included.
    TaskBuilder &dueFrom(const char *first, const char *last);
    TaskBuilder &startingAt(const char *localTime);
    TaskBuilder &endingAt(const char *localTime);
    TaskBuilder &tagged(const char *tag);
    TaskBuilder &prioritized(KWTaskPriority priority);
    TaskBuilder &ordered(std::int64_t sortOrder);
    TaskBuilder &in(const QString &listID);
    TaskBuilder &completedAt(const char *localTime);
    /// A line of its checklist with a date; it becomes a checklist task.
    TaskBuilder &withItem(const char *title, const char *localTime);
    template <class Value, class Owner>
    TaskBuilder &with(Value Owner::*member, std::type_identity_t<Value> value)
    {
        m_task.*member = std::move(value);
        return *this;
    }

    // As the tables in tests/data write them.
    /// "-", a day, a local time, or two of a kind: "2030-05-01 .. 2030-05-03".
    TaskBuilder &when(const QString &dates);
    /// Words out of "open completed abandoned trashed deleted repeating assigned-7"; "repeating": daily.
    TaskBuilder &inState(const QString &words, const char *closedAt);

    KWTaskModel model() const { return m_task; }
    /// Saves it and answers its id.
    QString savedIn(StoreFixture &store) const;

private:
    const char *m_zone;
    KWTaskModel m_task;
    QList<KWChecklistItemModel> m_items;
};

inline TaskBuilder aTask(const char *title, const char *zone = "UTC") { return {title, zone}; }

/// Runs the block in a background context and saves; a failure ends the program with a message.
void saved(StoreFixture &store, const std::function<void(ObjectContext &)> &block);

/// Sets one field of a stored record and saves.
template <class Record, class Value, class Owner>
void setSaved(StoreFixture &store, const QString &id, Value Owner::*member, std::type_identity_t<Value> value)
{
    saved(store, [&](ObjectContext &context) { context.find<Record>(id)->set(member, value); });
}
