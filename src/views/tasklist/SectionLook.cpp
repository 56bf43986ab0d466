#include "views/tasklist/SectionLook.h"

namespace {

Icon iconOfDay(const KWDateCategorySection &section, Day today)
{
    if (section.isMultiDate || !section.date) return Icon::Next7Days;
    if (*section.date == today) return Icon::Today;
    return *section.date == today + std::chrono::days{1} ? Icon::Tomorrow : Icon::Next7Days;
}

std::optional<Icon> iconOf(const KWTaskCategory &section, Day today)
{
    if (const auto *days = section.as<KWDateCategorySection>()) return iconOfDay(*days, today);
    if (section.isPriority()) return Icon::Flag;
    if (section.isProject() || section.isColumn()) return Icon::All;
    if (section.isNoteKind()) return Icon::Summary;
    if (section.isTag()) return Icon::Tag;
    if (section.isAssignee()) return Icon::AssignedToMe;
    if (section.isCompleted()) return Icon::Completed;
    if (section.isPinned()) return Icon::Pin;
    if (section.isCalSubscription()) return Icon::Calendar;
    if (section.isHabit()) return Icon::Habits;
    return std::nullopt;
}

// Whether a new task can be given what the section stands for.
bool canBeGiven(const KWTaskCategory &section)
{
    if (const auto *assignee = section.as<KWAssigneeCategorySection>()) return !assignee->isFormerMember;
    if (section.isDate()) return !section.isOverdue();
    return section.isPriority() || section.isProject() || section.isTag() || section.isColumn();
}

} // namespace

SectionLook sectionLookOf(const KWTaskCategory &section, Day today, bool takesNewTasks)
{
    const auto *priority = section.as<KWPriorityCategorySection>();
    return {.icon = iconOf(section, today),
            .priority = priority ? priority->priority : KWTaskPriorityNone,
            .isOverdue = section.isOverdue(),
            .canAdd = takesNewTasks && canBeGiven(section),
            .canPostpone = section.isOverdue()};
}
