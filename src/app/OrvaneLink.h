#pragma once

#include <QString>

#include <optional>

/// What a link of the scheme "orvane" points to: `orvane://task/ID`, `orvane://list/ID`,
/// `orvane://habit/ID`, `orvane://event/ID` (RFC 3986; the host names the kind). The id of a list may be
/// that of a smart list, such as "today".
struct OrvaneLink {
    enum class Kind { Task, List, Habit, Event };

    Kind kind;
    QString id;

    /// Nothing for any other text. Query and fragment are passed over.
    static std::optional<OrvaneLink> parse(const QString &link);
    /// As parse() reads it.
    QString text() const;

    bool operator==(const OrvaneLink &) const = default;
};
