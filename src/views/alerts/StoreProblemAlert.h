#pragma once

#include "model/store/Store.h"
#include "model/store/StoreBackups.h"

enum class StoreProblemAnswer { Quit, StartFresh, RestoreBackup };

/// Tells why the store cannot be opened. Only a damaged or lost one leaves a choice: to put `backup`, if
/// there is one, in its place, or to start with an empty store; a damaged one is kept either way.
StoreProblemAnswer askAboutStoreProblem(StoreProblem problem, const QString &sentence,
                                        const std::optional<StoreBackup> &backup = {});
