#pragma once

#include <QString>

/// One row of a completion popover.
struct KWCandidateModel {
    QString title;      ///< shown, and inserted behind the mark
    QString color{};    ///< "#rrggbb" of the dot before it; empty for none
    QString imageURL{}; ///< of a person, path or URL of the picture; empty for none
    /// The record behind it: a tag's name, a priority's number, a list's id, a person's server id. A date is
    /// its title.
    QString object{};

    bool operator==(const KWCandidateModel &) const = default;
};
