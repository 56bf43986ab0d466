#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// The manual position (`sortOrder`) of a task inside one group of one list, as plain values. The group
/// is what the list is grouped by; the list is the context, see contextID().
struct KWTaskSortOrderFields : KWSynchronizableFields {
    QString contextID;
    QString taskID;

    bool operator==(const KWTaskSortOrderFields &) const = default;
};

/// The field table of such a twin: the common fields, then what names its group.
template <class... Fields>
constexpr auto positioned(Fields... own)
{
    return synchronized(
        field("contextID", &KWTaskSortOrderFields::contextID, Json{"contextId"}, Change::Order),
        field("taskID", &KWTaskSortOrderFields::taskID, Json{"taskId"}, Change::Order), own...);
}

struct KWTaskDueDateSortOrderModel : KWTaskSortOrderFields {
    static constexpr RecordKind recordKind = RecordKind::TaskDueDateSortOrder;
    static constexpr const char *tableName = "taskDueDateSortOrders";

    int dayStamp = 0; ///< yyyymmdd

    bool operator==(const KWTaskDueDateSortOrderModel &) const = default;
};
template <>
inline constexpr auto recordFields<KWTaskDueDateSortOrderModel> =
    positioned(field("dayStamp", &KWTaskDueDateSortOrderModel::dayStamp, Change::Order));

struct KWTaskPrioritySortOrderModel : KWTaskSortOrderFields {
    static constexpr RecordKind recordKind = RecordKind::TaskPrioritySortOrder;
    static constexpr const char *tableName = "taskPrioritySortOrders";

    KWTaskPriority priority = KWTaskPriorityNone;

    bool operator==(const KWTaskPrioritySortOrderModel &) const = default;
};
template <>
inline constexpr auto recordFields<KWTaskPrioritySortOrderModel> =
    positioned(field("priority", &KWTaskPrioritySortOrderModel::priority, Change::Order));

struct KWTaskProjectSortOrderModel : KWTaskSortOrderFields {
    static constexpr RecordKind recordKind = RecordKind::TaskProjectSortOrder;
    static constexpr const char *tableName = "taskProjectSortOrders";

    QString projectID;

    bool operator==(const KWTaskProjectSortOrderModel &) const = default;
};
template <>
inline constexpr auto recordFields<KWTaskProjectSortOrderModel> =
    positioned(field("projectID", &KWTaskProjectSortOrderModel::projectID, Json{"projectId"}, Change::Order));

struct KWTaskTagSortOrderModel : KWTaskSortOrderFields {
    static constexpr RecordKind recordKind = RecordKind::TaskTagSortOrder;
    static constexpr const char *tableName = "taskTagSortOrders";

    QString tagName;

    bool operator==(const KWTaskTagSortOrderModel &) const = default;
};
template <>
inline constexpr auto recordFields<KWTaskTagSortOrderModel> =
    positioned(field("tagName", &KWTaskTagSortOrderModel::tagName, Change::Order));

/// Among the pinned tasks of a list.
struct KWTaskPinnedSortOrderModel : KWTaskSortOrderFields {
    static constexpr RecordKind recordKind = RecordKind::TaskPinnedSortOrder;
    static constexpr const char *tableName = "taskPinnedSortOrders";

    bool operator==(const KWTaskPinnedSortOrderModel &) const = default;
};
template <>
inline constexpr auto recordFields<KWTaskPinnedSortOrderModel> = positioned();
