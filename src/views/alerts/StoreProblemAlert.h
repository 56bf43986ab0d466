#pragma once

#include "model/store/Store.h"

enum class StoreProblemAnswer { Quit, StartFresh };

/// Tells why the store cannot be opened. Only a damaged one leaves a choice: to set it aside, where it
/// is kept, and to start with a fresh one.
StoreProblemAnswer askAboutStoreProblem(StoreProblem problem, const QString &sentence);
