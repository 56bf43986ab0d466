#pragma once

#include "model/records/KWTeammateModel.h"
#include "model/records/ManagedRecord.h"

/// A member of a team in a context.
class KWTeammate : public ManagedRecord<KWTeammateModel> {};
