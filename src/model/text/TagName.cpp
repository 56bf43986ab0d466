#include "model/text/TagName.h"

#include "model/text/UnicodeText.h"

namespace {

constexpr char32_t zeroWidthNonJoiner = 0x200C;
constexpr char32_t zeroWidthJoiner = 0x200D;

bool isInnerCharacter(char32_t character)
{
    return character == U'-' || character == zeroWidthNonJoiner || character == zeroWidthJoiner;
}

qsizetype unitsOf(char32_t character) { return QChar::requiresSurrogates(character) ? 2 : 1; }

} // namespace

bool isTagNameCharacter(char32_t character) { return character == U'_' || isWordCharacter(character); }

TagNameSpan::TagNameSpan(QStringView text, qsizetype start) : end(start), innerEnd(start)
{
    for (qsizetype i = start; i < text.size();) {
        const char32_t character = characterAt(text, i);
        const bool isInner = i > start && isInnerCharacter(character);
        if (!isInner && !isTagNameCharacter(character)) break;
        i += unitsOf(character);
        innerEnd = i;
        if (isInner) continue;
        end = i;
        isOnlyDigits = isOnlyDigits && (QChar::isDigit(character) || character == U'_');
    }
}

bool isContainsSpecialCharactersForTag(QStringView name) { return TagNameSpan{name, 0}.end != name.size(); }
