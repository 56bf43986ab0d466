#pragma once

#include "model/records/KWConstants.h"

class KWTask;

/// Makes a task of another kind of it, without losing text: see ChecklistText. Items of a checklist that
/// became text are deleted.
void changeKind(KWTask &task, KWTaskKind kind);
