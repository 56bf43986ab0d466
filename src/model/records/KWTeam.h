#pragma once

#include "model/records/KWTeamModel.h"
#include "model/records/ManagedRecord.h"

/// A team in a context.
class KWTeam : public ManagedRecord<KWTeamModel> {};
