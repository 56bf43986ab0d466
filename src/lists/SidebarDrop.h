#pragma once

#include "lists/KWProjectListNode.h"

/// Where a row of the sidebar may be dropped, and what tasks dropped on one become. Pure; the rules stand
/// in docs/sidebar.md.
namespace SidebarDrop {

/// Right on a node, not between two of its children.
inline constexpr int onNode = -1;

/// Where a list, folder, tag or filter goes: into the folder or below the tag `parentID` (empty for none),
/// before the record `beforeID` (empty for behind the last).
struct Place {
    QString parentID;
    QString beforeID;
    bool operator==(const Place &) const = default;
};

/// What the proposed drop means: between the children of `parent`, before the one at `childIndex`, or on
/// it. Nothing when the row may not go there, or is there already.
std::optional<Place> validateDrop(const KWProjectListNode &dragged, const KWProjectListNode &parent,
                                  int childIndex);
/// One row up (-1) or down (1) among those beside it; nothing at the end.
std::optional<Place> placeBeside(const KWProjectListNode &node, int step);

enum class TaskDrop { None, MoveToList, AddTag, SetToday, SetTomorrow, Complete, Abandon, Delete };
TaskDrop validateTaskDrop(const KWProjectListNode &node);

} // namespace SidebarDrop
