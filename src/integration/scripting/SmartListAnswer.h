#pragma once

#include "integration/scripting/KWScriptCommand.h"

class KWSmartProject;

/// The smart list as JSON text: an array of its sections that have tasks, in the order of the list.
Result<QString> smartListAnswer(const KWSmartProject &list, const ScriptSurroundings &with);
