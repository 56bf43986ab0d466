#pragma once

#include "model/records/KWTeamworkerModel.h"
#include "model/records/ManagedRecord.h"

/// A member of a shared list in a context.
class KWTeamworker : public ManagedRecord<KWTeamworkerModel> {};
