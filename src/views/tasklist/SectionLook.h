#pragma once

#include "lists/KWTaskCategory.h"
#include "views/theme/Icons.h"

#include <optional>

/// How the header of a section looks, and what it offers.
struct SectionLook {
    std::optional<Icon> icon{};
    KWTaskPriority priority = KWTaskPriorityNone; ///< whose colour the icon has
    bool isOverdue = false;
    bool canAdd = false;      ///< a task can be made in it
    bool canPostpone = false; ///< its tasks can be put off to today

    bool operator==(const SectionLook &) const = default;
};

/// `takesNewTasks`: of the list.
SectionLook sectionLookOf(const KWTaskCategory &section, Day today, bool takesNewTasks);
