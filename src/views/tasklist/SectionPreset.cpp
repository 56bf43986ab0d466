#include "views/tasklist/SectionPreset.h"

NewTaskContext newTaskContextOf(const KWCategorySection &section, NewTaskContext ofList)
{
    if (const auto *days = std::get_if<KWDateCategorySection>(&section)) {
        ofList.presetDay = days->date;
        ofList.presetsNoDate = !days->date;
    } else if (const auto *priority = std::get_if<KWPriorityCategorySection>(&section))
        ofList.presetPriority = priority->priority;
    else if (const auto *list = std::get_if<KWProjectCategorySection>(&section))
        ofList.presetList = list->projectID;
    else if (const auto *tag = std::get_if<KWTagCategorySection>(&section); tag && tag->tag)
        ofList.presetTagNames = QStringList{*tag->tag};
    else if (const auto *column = std::get_if<KWColumnCategorySection>(&section))
        ofList.presetColumn = column->column;
    else if (const auto *assignee = std::get_if<KWAssigneeCategorySection>(&section))
        ofList.presetAssignee = assignee->userServerIDs.value(0, KWTaskAssignedToNobody);
    return ofList;
}
