#pragma once

#include <QString>

/// The text for a localisation key in the language of the interface: the installed translation's, else
/// the English one, else the key itself. Thread-safe.
QString KWLocalizedString(const char *key);
