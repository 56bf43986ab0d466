#pragma once

#include <QString>

/// What a marked piece of a typed title sets.
enum class RecognizedPieceType { Date, Tag, Priority, List, Assignee };

/// A piece of a typed title that was understood, in text order when several are given.
struct RecognizedPiece {
    RecognizedPieceType type = RecognizedPieceType::Date;
    qsizetype location = 0; ///< UTF-16 units of the typed text
    qsizetype length = 0;
    QString text;  ///< as typed
    QString value; ///< what undoing it blocks: a list id, a priority number, a person's server id; empty for
                   ///< the others

    bool operator==(const RecognizedPiece &) const = default;
};
