#pragma once

#include "model/records/KWPomodoroModel.h"
#include "model/records/ManagedRecord.h"

/// A focus session in a context.
class KWPomodoro : public ManagedRecord<KWPomodoroModel> {};
