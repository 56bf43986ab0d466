#pragma once

#include "model/records/KWTaskSortOrders.h"

#include <type_traits>

/// The records that hold the positions of one sort type, and their field that names the group; those of
/// pinned tasks have none. Groups are texts, as `column` reads them.
template <class RecordOfKind, auto field>
struct PositionKind {
    using Record = RecordOfKind;
    using Model = typename Record::Model;

    const char *column;

    static QString groupOf(const Model &model)
    {
        if constexpr (!std::is_member_object_pointer_v<decltype(field)>)
            return {};
        else if constexpr (std::is_same_v<decltype(model.*field), const QString &>)
            return model.*field;
        else
            return QString::number(int(model.*field));
    }

    static void setGroup(Model &model, const QString &group)
    {
        if constexpr (!std::is_member_object_pointer_v<decltype(field)>)
            return;
        else if constexpr (std::is_same_v<decltype(model.*field), QString &>)
            model.*field = group;
        else
            model.*field = std::remove_reference_t<decltype(model.*field)>(group.toInt());
    }
};

/// Calls `visit` with the kind of the sort type; not for types without positions of their own. Of pinned
/// tasks it is KWTaskSortTypePinnedDate.
template <class Visitor>
void visitPositionKind(KWTaskSortType sortType, Visitor &&visit)
{
    switch (sortType) {
    case KWTaskSortTypeDate:
        return visit(
            PositionKind<KWTaskDueDateSortOrder, &KWTaskDueDateSortOrderModel::dayStamp>{"dayStamp"});
    case KWTaskSortTypePriority:
        return visit(
            PositionKind<KWTaskPrioritySortOrder, &KWTaskPrioritySortOrderModel::priority>{"priority"});
    case KWTaskSortTypeProject:
        return visit(
            PositionKind<KWTaskProjectSortOrder, &KWTaskProjectSortOrderModel::projectID>{"projectID"});
    case KWTaskSortTypeTag:
        return visit(PositionKind<KWTaskTagSortOrder, &KWTaskTagSortOrderModel::tagName>{"tagName"});
    case KWTaskSortTypePinnedDate:
        return visit(PositionKind<KWTaskPinnedSortOrder, nullptr>{"''"});
    case KWTaskSortTypeCustom:
    case KWTaskSortTypeTitle:
    case KWTaskSortTypeAssignee:
    case KWTaskSortTypeCreatedTime:
    case KWTaskSortTypeModifiedTime:
    case KWTaskSortTypeCompletionDate:
        break;
    }
}
