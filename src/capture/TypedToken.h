#pragma once

#include "capture/TokenScanner.h"
#include "model/text/TextRange.h"

#include <optional>

/// The token that is being typed.
struct TypedToken {
    TokenKind kind;
    TextRange range; ///< from the mark to the caret
    QString keyword; ///< what stands between the two, without white space
    QString rest;    ///< of the word in which the caret stands, the white space behind it included

    /// What a completion by that title takes the place of: the rest of the word goes too where it is of the
    /// title, and else what the caret stands in front of stays.
    TextRange rangeReplacedBy(const QString &title) const;

    /// The last token in front of the caret of those kinds, as long as nothing has ended it. Nothing is typed
    /// in links and mail addresses, nor right behind a word: "wow!" asks for nothing.
    static std::optional<TypedToken> find(const QString &text, qsizetype caret, TokenKinds kinds);

    bool operator==(const TypedToken &) const = default;
};
