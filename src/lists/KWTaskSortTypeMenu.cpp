#include "lists/KWTaskSortTypeMenu.h"

#include "model/settings/KWLocalizedString.h"

QList<KWTaskSortType> KWTaskSortTypeMenu::sortTypes() const
{
    if (isNormalProject) {
        QList<KWTaskSortType> types{KWTaskSortTypeCustom, KWTaskSortTypeDate, KWTaskSortTypeTitle,
                                    KWTaskSortTypeTag, KWTaskSortTypePriority};
        if (isNoteKind)
            types = {KWTaskSortTypeCreatedTime, KWTaskSortTypeModifiedTime, KWTaskSortTypeTitle,
                     KWTaskSortTypeTag};
        if (isSharedProject) types.append(KWTaskSortTypeAssignee);
        return types;
    }
    if (isGroup && isAllNoteKindInGroup)
        return {KWTaskSortTypeProject, KWTaskSortTypeCreatedTime, KWTaskSortTypeModifiedTime,
                KWTaskSortTypeTitle, KWTaskSortTypeTag};
    if (isGroup) {
        QList<KWTaskSortType> types{KWTaskSortTypeProject, KWTaskSortTypeDate, KWTaskSortTypeTitle,
                                    KWTaskSortTypeTag, KWTaskSortTypePriority};
        if (!isAllTaskKindInGroup) types.append({KWTaskSortTypeCreatedTime, KWTaskSortTypeModifiedTime});
        return types;
    }
    QList<KWTaskSortType> types{KWTaskSortTypeProject, KWTaskSortTypeDate, KWTaskSortTypeTitle};
    if (isNoteKindFilter) types = QList{KWTaskSortTypeCreatedTime, KWTaskSortTypeModifiedTime} + types;
    if (!isTag || isParentTag) types.append(KWTaskSortTypeTag);
    if (!isNoteKindFilter) types.append(KWTaskSortTypePriority);
    return types;
}

std::optional<KWTaskSortType> KWTaskSortTypeMenu::resetType() const
{
    if (manualOrders.hasDuedateSortOrder) return KWTaskSortTypeDate;
    if (manualOrders.hasPrioritySortOrder) return KWTaskSortTypePriority;
    if (manualOrders.hasProjectSortOrder) return KWTaskSortTypeProject;
    if (manualOrders.hasTagSortOrder) return KWTaskSortTypeTag;
    return std::nullopt;
}

std::optional<QString> KWTaskSortTypeMenu::resetTitle() const
{
    const auto sortType = resetType();
    if (!sortType) return std::nullopt;
    switch (*sortType) {
    case KWTaskSortTypeDate:
        return KWLocalizedString("Reset to default date order");
    case KWTaskSortTypePriority:
        return KWLocalizedString("Reset to default priority order");
    case KWTaskSortTypeProject:
        return KWLocalizedString("Reset to default project order");
    default:
        return KWLocalizedString("Reset to default tag order");
    }
}

QString KWTaskSortTypeMenu::titleOf(KWTaskSortType type)
{
    switch (type) {
    case KWTaskSortTypeCustom:
        return KWLocalizedString("Custom");
    case KWTaskSortTypeProject:
        return KWLocalizedString("By List");
    case KWTaskSortTypeDate:
        return KWLocalizedString("By Time");
    case KWTaskSortTypeTitle:
        return KWLocalizedString("By Title");
    case KWTaskSortTypeTag:
        return KWLocalizedString("By Tag");
    case KWTaskSortTypePriority:
        return KWLocalizedString("By Priority");
    case KWTaskSortTypeAssignee:
        return KWLocalizedString("By Assignee");
    case KWTaskSortTypeCreatedTime:
        return KWLocalizedString("by_created_time");
    case KWTaskSortTypeModifiedTime:
        return KWLocalizedString("by_modified_time");
    case KWTaskSortTypeCompletionDate:
    case KWTaskSortTypePinnedDate:
        break;
    }
    return {};
}
