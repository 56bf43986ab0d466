#pragma once

#include "model/text/TextRange.h"

#include <QString>

/// A token as its scanner found it.
struct KWCandidateEntity {
    TextRange range;   ///< of the whole match, mark and terminator included
    QString string;    ///< the matched text
    QString absString; ///< the keyword: without white space, then without its first mark

    bool operator==(const KWCandidateEntity &) const = default;
};
