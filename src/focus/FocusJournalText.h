#pragma once

#include "focus/FocusJournal.h"

/// A session of the journal as one line of JSON. What runs has neither end nor type nor status: it is a Pomo
/// that ends with its last stretch.
namespace FocusJournalText {

enum class Kind { Running, Left, Waiting };
struct Line {
    FocusJournal::Session session;
    bool isLeft = false;
};

QString text(const FocusJournal::Session &session, Kind kind);
/// None for a damaged text.
std::optional<Line> line(const QString &text);

} // namespace FocusJournalText
