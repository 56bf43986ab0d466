#pragma once

#include "corvexkit/Result.h"

#include <SQLiteCpp/Exception.h>

/// A sentence about the store in the language of the interface.
QString storeText(const char *english);

/// Why the store could not be read or written, as a sentence for a person.
Error storeFailure(const SQLite::Exception &exception);
