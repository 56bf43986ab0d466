#include "model/text/TwitterText.h"

#include "model/text/OpaqueText.h"
#include "model/text/TagName.h"
#include "model/text/UnicodeText.h"

using namespace Qt::StringLiterals;

namespace {

enum class HashtagForm { Valid, Possible };

bool isHashMark(QChar unit) { return unit == u'#' || unit == u'＃'; }

// "&#39;" is a character, not a tag.
bool mayStandAfter(char32_t character)
{
    if (character == U'&' || character == U'＆') return false;
    return !isTagNameCharacter(character) || isOfUnspacedScript(character);
}

QList<TextRange> hashtags(QStringView text, HashtagForm form)
{
    QList<TextRange> found;
    const QList<TextRange> links = holdsLinkMark(text) ? linkRanges(text) : QList<TextRange>{};
    qsizetype tagEnd = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!isHashMark(text[i])) continue;
        if (i != tagEnd && !mayStandAfter(characterAt(text, i - 1))) continue;
        if (isInside(links, i)) continue;

        const TagNameSpan name{text, i + 1};
        const bool isAtEnd = form == HashtagForm::Possible && name.innerEnd == text.size();
        if (name.isOnlyDigits && !isAtEnd) continue;
        if (text.sliced(name.end).startsWith("://"_L1)) continue;
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
