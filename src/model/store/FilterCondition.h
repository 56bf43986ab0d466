#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/filter/CXSmartFilter.h"
#include "model/store/SqlValue.h"

#include <optional>
#include <string>

class CXClock;
class Connection;
class ObjectContext;
struct TaskPlace;

/// A condition over `tasks t`, true or false and never NULL, with what fills its placeholders.
struct FilterCondition {
    /// By what the store looks first. Of the other ways the tasks are walked in the order of their rows.
    enum class Way { Order, Lists, Chosen };

    std::string where;
    SqlValues values;
    Way way = Way::Order; ///< Chosen: few tasks are named by their ids

    static FilterCondition of(const CXSmartFilter &filter, const CXSmartFilterFrame &frame);
};

namespace StoredFilter {

/// The day that the clock shows, the user's first weekday, number as an assignee and tags. Throws
/// SQLite::Exception.
CXSmartFilterFrame frameOf(const QString &userID, const CXClock &clock, Connection &connection);
/// The same of a context; an error where it cannot be read.
Result<CXSmartFilterFrame> frameOf(const QString &userID, ObjectContext &context);
/// The filter of that id, with the sentence of its rule when that cannot be read; nothing when there is no
/// such filter. Throws SQLite::Exception.
std::optional<Result<CXSmartFilter>> find(const QString &filterID, Connection &connection);

/// A task in a list of that folder, as filters see it.
CXFilteredItem itemOf(const TaskPlace &place, const QString &folderID);

} // namespace StoredFilter
