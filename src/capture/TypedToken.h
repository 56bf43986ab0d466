#pragma once

#include "capture/TokenScanner.h"
#include "model/text/TextRange.h"

#include <optional>

/// The token that is being typed.
struct TypedToken {
    TokenKind kind;
    TextRange range; ///< what a completion takes the place of
    QString keyword; ///< what stands between the mark and the caret, without white space

    /// The last token in front of the caret of those kinds, as long as nothing has ended it. It reaches to
    /// the end of the word in which the caret stands. Nothing is typed in links and mail addresses, nor
    /// right behind a word: "wow!" asks for nothing.
    static std::optional<TypedToken> find(const QString &text, qsizetype caret, TokenKinds kinds);

    bool operator==(const TypedToken &) const = default;
};
