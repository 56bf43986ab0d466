#pragma once

#include "model/records/KWCommentModel.h"
#include "model/records/ManagedRecord.h"

/// A comment on a task, in a context.
class KWComment : public ManagedRecord<KWCommentModel> {};
