#include "capture/TwitterText.h"

#include "capture/OpaqueText.h"
#include "capture/UnicodeText.h"

namespace {

enum class HashtagForm { Valid, Possible };

constexpr char32_t zeroWidthNonJoiner = 0x200C;
constexpr char32_t zeroWidthJoiner = 0x200D;

bool isHashMark(QChar unit) { return unit == u'#' || unit == u'＃'; }

bool isNameCharacter(char32_t character) { return character == U'_' || isWordCharacter(character); }

bool isInnerCharacter(char32_t character)
{
    return character == U'-' || character == zeroWidthNonJoiner || character == zeroWidthJoiner;
}

qsizetype unitsOf(char32_t character) { return QChar::requiresSurrogates(character) ? 2 : 1; }

bool mayStandAfter(char32_t character)
{
    return !isNameCharacter(character) || isOfUnspacedScript(character);
}

/// The name that begins at `start`.
struct HashtagName {
    qsizetype end = 0;      ///< after its last letter, mark, digit or "_"
    qsizetype innerEnd = 0; ///< after the inner characters that follow, too
    bool isOnlyDigits = true;

    HashtagName(QStringView text, qsizetype start) : end(start), innerEnd(start)
    {
        for (qsizetype i = start; i < text.size();) {
            const char32_t character = characterAt(text, i);
            const bool isInner = i > start && isInnerCharacter(character);
            if (!isInner && !isNameCharacter(character)) break;
            i += unitsOf(character);
            innerEnd = i;
            if (isInner) continue;
            end = i;
            isOnlyDigits = isOnlyDigits && (QChar::isDigit(character) || character == U'_');
        }
    }
};

QList<TextRange> hashtags(QStringView text, HashtagForm form)
{
    QList<TextRange> found;
    const QList<TextRange> links = holdsLinkMark(text) ? linkRanges(text) : QList<TextRange>{};
    qsizetype tagEnd = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!isHashMark(text[i])) continue;
        if (i != tagEnd && !mayStandAfter(characterAt(text, i - 1))) continue;
        if (isInside(links, i)) continue;

        const HashtagName name{text, i + 1};
        const bool isAtEnd = form == HashtagForm::Possible && name.innerEnd == text.size();
        if (name.isOnlyDigits && !isAtEnd) continue;
        tagEnd = isAtEnd ? name.innerEnd : name.end;
        found.append({i, tagEnd - i});
        i = tagEnd - 1;
    }
    return found;
}

} // namespace

QList<TextRange> TwitterText::cx_validHashtagsInText(QStringView text)
{
    return hashtags(text, HashtagForm::Valid);
}

QList<TextRange> TwitterText::cx_possibleHashtagsInText(QStringView text)
{
    return hashtags(text, HashtagForm::Possible);
}

bool TwitterText::cx_isValidPrefixForHashTag(QStringView text)
{
    return mayStandAfter(characterAt(text, text.size() - 1));
}

bool isContainsSpecialCharactersForTag(QStringView name) { return HashtagName{name, 0}.end != name.size(); }
