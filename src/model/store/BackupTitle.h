#pragma once

#include "model/store/StoreBackups.h"

/// The backup for a person, in the language and the date format of the default locale: "The backup of
/// Wednesday, 1 May 2030", "The store set aside on 1 May 2030 09:00".
QString titleOf(const StoreBackup &backup);
