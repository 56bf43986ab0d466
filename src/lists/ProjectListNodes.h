#pragma once

#include "lists/KWProjectListNode.h"
#include "lists/ProjectListContents.h"

class KWSmartProject;

/// The nodes of the sidebar's parts, made from what was read. Main thread.
namespace ProjectListNodes {

using Nodes = std::vector<std::unique_ptr<KWProjectListNode>>;

std::unique_ptr<KWProjectListNode> smartNode(const KWSmartProject &smart);

/// The inbox and the smart lists of what is to be done.
Nodes top(const ProjectListContents &contents);
/// The lists of what was done or thrown away.
Nodes bottom(const ProjectListContents &contents);
/// Folders and the lists in none, in one order; then the closed ones. With teams, every team's lists stand
/// in a group of their own and so do the personal ones.
Nodes lists(const ProjectListContents &contents);
/// Two deep; a tag whose parent is missing stands on its own. None while the section is hidden.
Nodes tags(const ProjectListContents &contents);
Nodes filters(const ProjectListContents &contents);
Nodes subscriptions(const ProjectListContents &contents);

/// A node that is named in place, and the record made then.
std::unique_ptr<KWProjectListNode> unnamed(KWProjectListNodeType type);

} // namespace ProjectListNodes
