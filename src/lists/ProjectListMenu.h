#pragma once

#include "lists/KWProjectListNode.h"
#include "model/records/KWProjectModel.h"

/// What the menu of a node of the sidebar offers.
enum class ProjectListCommand {
    NewList,
    NewNoteList,
    NewFolder,
    NewTag,
    NewFilter,
    NewCalendar,
    EditFilter,
    Rename,
    Color,
    MoveToFolder,
    Archive,
    Reopen,
    ReadAgain,      ///< a calendar
    ShowInCalendar, ///< or not
    ShowOnlyIfNotEmpty,
    Hide,
    Delete,
    ExitSharedList,
};

/// The commands in the order of the menu. `list` is the list that the node shows, if it shows one.
QList<ProjectListCommand> projectListMenu(const KWProjectListNode &node,
                                          const std::optional<KWProjectModel> &list);
