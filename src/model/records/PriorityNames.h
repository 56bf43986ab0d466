#pragma once

#include "model/records/KWConstants.h"

/// What the interface calls a priority, by the keys "priority_None" to "priority_High".
QString displayName(KWTaskPriority priority);

/// The icon of a priority: "flag", and "flag-none" for none.
QString iconName(KWTaskPriority priority);
