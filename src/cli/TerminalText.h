#pragma once

#include <QString>

/// The text as a line of a terminal may show it, which obeys what it is sent. Control characters (C0, DEL
/// and C1), line and paragraph separators, and the embeddings, overrides and isolates of the bidirectional
/// algorithm (UAX #9, section 2) become spaces; everything else stays as it is.
QString terminalText(QString text);
