#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWListIdentifier.h"

class OrvaneKit;

/// The list that a person calls by that name on the command line: one of their own, "#tag", or a smart
/// list by its displayed name. An error says that there is none.
Result<KWListIdentifier> listNamed(const QString &name, OrvaneKit &kit);
