#pragma once

#include "corvexkit/Result.h"

namespace SQLite {
class Exception;
}

/// A sentence about the store in the language of the interface.
QString storeText(const char *english);

/// Why the store could not be read or written, as a sentence for a person.
Error storeFailure(const SQLite::Exception &exception);
