#include "model/text/UnicodeText.h"

#include <QString>

#include <algorithm>

char32_t characterAt(QStringView text, qsizetype position)
{
    if (position < 0 || position >= text.size()) return 0;
    const QChar unit = text[position];
    if (unit.isHighSurrogate() && position + 1 < text.size() && text[position + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(unit, text[position + 1]);
    if (unit.isLowSurrogate() && position > 0 && text[position - 1].isHighSurrogate())
        return QChar::surrogateToUcs4(text[position - 1], unit);
    return unit.unicode();
}

bool isOfUnspacedScript(char32_t character)
{
    if (character < 0x0E00) return false;
    switch (QChar::script(character)) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Bopomofo:
    case QChar::Script_Thai:
    case QChar::Script_Lao:
    case QChar::Script_Khmer:
    case QChar::Script_Myanmar:
        return true;
    default:
        return false;
    }
}

bool isWordCharacter(char32_t character)
{
    if (character < 0x80) return (character | 0x20U) - U'a' < 26 || character - U'0' < 10;
    return QChar::isLetterOrNumber(character) || QChar::isMark(character);
}

bool isWordBoundary(QStringView text, qsizetype position)
{
    const bool isInsidePair = position > 0 && position < text.size() && text[position].isLowSurrogate() &&
                              text[position - 1].isHighSurrogate();
    if (isInsidePair) return false;
    const char32_t before = characterAt(text, position - 1);
    const char32_t after = characterAt(text, position);
    if (QChar::isMark(after)) return before == 0;
    if (!isWordCharacter(before) || !isWordCharacter(after)) return true;
    return isOfUnspacedScript(before) || isOfUnspacedScript(after);
}

QString withoutBrokenSurrogates(const QString &text)
{
    if (text.isValidUtf16()) return text;
    QString whole = text;
    for (qsizetype i = 0; i < whole.size(); ++i)
        if (QChar::isSurrogate(characterAt(whole, i))) whole[i] = QChar::ReplacementCharacter;
    return whole;
}
