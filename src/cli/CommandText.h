#pragma once

#include <QCoreApplication>

/// A sentence of the command line in the language of the interface.
inline QString commandText(const char *text) { return QCoreApplication::translate("CommandLine", text); }
