#include "model/text/DayText.h"

#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct PatternPiece {
    QString text;
    bool isField;

    bool isOneOf(QStringView letters) const
    {
        return isField && letters.contains(text.at(0)) && text != u"dddd";
    }
};

QList<PatternPiece> piecesOf(const QString &pattern)
{
    QList<PatternPiece> pieces;
    bool quoted = false;
    for (qsizetype at = 0; at < pattern.size(); ++at) {
        const QChar character = pattern.at(at);
        if (character == u'\'') quoted = !quoted;
        const bool isField = !quoted && u"dMy"_s.contains(character);
        const bool continues = !pieces.isEmpty() && pieces.last().isField == isField &&
                               (!isField || pieces.last().text.at(0) == character);
        if (continues)
            pieces.last().text += character;
        else
            pieces.append({QString{character}, isField});
    }
    return pieces;
}

// The part of the locale's long date that spans the given fields, with the month in `month` and with a
// unit such as "日" that is written right behind the last field.
QString pattern(const QLocale &locale, QStringView fields, const QString &month = u"MMM"_s)
{
    const QList<PatternPiece> pieces = piecesOf(locale.dateFormat(QLocale::LongFormat));
    const auto wanted = [fields](const PatternPiece &piece) { return piece.isOneOf(fields); };
    const auto first = std::find_if(pieces.begin(), pieces.end(), wanted);
    const auto last = std::find_if(pieces.rbegin(), pieces.rend(), wanted).base();

    QString result;
    for (auto piece = first; piece != last; ++piece)
        result += piece->text == u"MMMM" ? month : piece->text;
    if (last != pieces.end() && !last->isField)
        for (const QChar character : last->text) {
            if (!character.isLetter()) break;
            result += character;
        }
    return result;
}

} // namespace

QString DayText::dayAndMonth(Day day, const QLocale &locale)
{
    return locale.toString(dateOf(day), pattern(locale, u"dM"));
}

QString DayText::dayAndFullMonth(Day day, const QLocale &locale)
{
    return locale.toString(dateOf(day), pattern(locale, u"dM", u"MMMM"_s));
}

QString DayText::dayMonthAndYear(Day day, const QLocale &locale)
{
    return locale.toString(dateOf(day), pattern(locale, u"dMy"));
}

QString DayText::dayFullMonthAndYear(Day day, const QLocale &locale)
{
    return locale.toString(dateOf(day), pattern(locale, u"dMy", u"MMMM"_s));
}
