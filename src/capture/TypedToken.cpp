#include "capture/TypedToken.h"

#include "capture/KWTagTextEntity.h"
#include "model/text/OpaqueText.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kindsInOrder{TokenKind::Tag, TokenKind::Priority, TokenKind::List, TokenKind::Assignee,
                                  TokenKind::Date};

// What is scanned ends at the caret, so that only a terminator can have ended a token there.
bool isEnded(const KWCandidateEntity &token, TokenKind kind)
{
    if (kind == TokenKind::Tag) return false;
    const QStringView typed = token.string;
    if (!typed.back().isSpace()) return false;
    return kind != TokenKind::List || typed.back() != u' ' || typed.endsWith("  "_L1);
}

bool mayBegin(const KWCandidateEntity &token, TokenKind kind, const QString &text)
{
    if (kind == TokenKind::Tag) return true; // the scanner has looked
    return KWTagTextEntity::isValidPrefix(QStringView{text}.first(token.range.location));
}

bool isOfWord(QChar unit)
{
    return unit.isLetterOrNumber() || unit.isMark() || unit.isSurrogate() || unit == u'_' || unit == u'-';
}

// The white space behind it included: a completion ends with its own.
qsizetype endOfWord(QStringView text, qsizetype position)
{
    while (position < text.size() && isOfWord(text[position]))
        ++position;
    return position < text.size() && text[position] == u' ' ? position + 1 : position;
}

} // namespace

TextRange TypedToken::rangeReplacedBy(const QString &title) const
{
    QString compact = title;
    compact.removeIf([](QChar unit) { return unit.isSpace(); });
    const QString word = rest.trimmed();
    const bool isOfTitle =
        word.isEmpty() || (!keyword.isEmpty() && compact.contains(keyword + word, Qt::CaseInsensitive));
    return {range.location, range.length + (isOfTitle ? rest.size() : 0)};
}

std::optional<TypedToken> TypedToken::find(const QString &text, qsizetype caret, TokenKinds kinds)
{
    const QString typed = text.first(caret);
    const TokenKinds present = TokenScanner::kindsIn(typed) & kinds;
    std::optional<TypedToken> found;
    for (const TokenKind kind : kindsInOrder) {
        if (!present.testFlag(kind)) continue;
        const QList<KWCandidateEntity> tokens = TokenScanner::scan(kind, typed);
        if (tokens.isEmpty()) continue;
        const KWCandidateEntity &last = tokens.last();
        const bool isNearer = !found || last.range.location > found->range.location;
        if (last.range.end() != caret || !isNearer || isEnded(last, kind) || !mayBegin(last, kind, text))
            continue;
        found =
            TypedToken{kind, last.range, last.absString, text.sliced(caret, endOfWord(text, caret) - caret)};
    }
    if (found && holdsLinkMark(text) && isInside(linkRanges(text), found->range.location))
        return std::nullopt;
    return found;
}
