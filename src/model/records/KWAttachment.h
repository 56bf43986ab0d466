#pragma once

#include "model/records/KWAttachmentModel.h"
#include "model/records/ManagedRecord.h"

/// A file attached to a task, in a context.
class KWAttachment : public ManagedRecord<KWAttachmentModel> {};
