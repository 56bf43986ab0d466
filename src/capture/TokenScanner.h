#pragma once

#include "capture/KWCandidateEntity.h"

#include <QFlags>
#include <QList>

/// The kinds of marked tokens in a title, one bit each.
enum class TokenKind { Tag = 1, Priority = 2, List = 4, Assignee = 8, Date = 16 };
Q_DECLARE_FLAGS(TokenKinds, TokenKind)
Q_DECLARE_OPERATORS_FOR_FLAGS(TokenKinds)

/// Finds the tokens of one kind:
///
/// | kind     | begins with | ends at                                              |
/// |----------|-------------|------------------------------------------------------|
/// | Tag      | # ＃        | the end of the hashtag                               |
/// | Priority | ! ！        | white space, the end of the text                     |
/// | List     | ~ ～ ^      | two spaces, a line break, a tab, the end of the text |
/// | Assignee | @           | white space, the end of the text                     |
/// | Date     | *           | white space, the end of the text                     |
///
/// A second mark of the kind begins a new token; brackets "(" and ")" end the search in priorities and
/// lists, so that these are none. Full-width marks count as their half-width forms.
namespace TokenScanner {

/// The tokens in text order. A text with a broken surrogate has none but tags.
QList<KWCandidateEntity> scan(TokenKind kind, const QString &text);

/// The kinds whose mark stands in the text: only these can have tokens.
TokenKinds kindsIn(QStringView text);

/// The mark a completion puts in front: "#", "!", "~", "@", "*".
QString prefixSymbal(TokenKind kind);

} // namespace TokenScanner
