#pragma once

#include <QString>

/// The name of the program in the language of the interface.
QString localizedApplicationName();

/// The text for a localisation key, with the program's name in place of its "%@".
QString textWithApplicationName(const char *key);
