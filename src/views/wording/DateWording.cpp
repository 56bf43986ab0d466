#include "views/wording/DateWording.h"

#include "model/settings/ClockFormat.h"
#include "model/settings/KWLocalizedString.h"
#include "views/wording/CalendarDay.h"

#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono;

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

QString DateWording::timeOfDay(LocalTime time, const QLocale &locale)
{
    return ClockFormat::timeOfDay(time - floor<days>(time), locale);
}

QString DateWording::dayAndMonth(Day day, const QLocale &locale)
{
    return locale.toString(dateOf(day), pattern(locale, u"dM"));
}

QString DateWording::dayMonthAndYear(Day day, const QLocale &locale)
{
    return locale.toString(dateOf(day), pattern(locale, u"dMy"));
}

QString DateWording::weekdayAndDay(Day day, Day today, const QLocale &locale)
{
    const bool sameYear = dateOf(day).year() == dateOf(today).year();
    const QString weekday = locale.dayName(dateOf(day).dayOfWeek(), QLocale::ShortFormat);
    return weekday + u' ' + (sameYear ? dayAndMonth(day, locale) : dayMonthAndYear(day, locale));
}

QString DateWording::fullDay(Day day, const QLocale &locale)
{
    const QString date = locale.toString(dateOf(day), pattern(locale, u"dM", u"MMMM"_s));
    return locale.dayName(dateOf(day).dayOfWeek(), QLocale::LongFormat) + u' ' + date;
}

QString DateWording::relativeDay(Day day, Day today, const QLocale &locale, PastWeekdays pastWeekdays)
{
    const auto distance = (day - today).count();
    if (distance == 0) return KWLocalizedString("Today");
    if (distance == 1) return KWLocalizedString("Tomorrow");
    if (distance == -1) return KWLocalizedString("Yesterday");
    const bool isNear = distance > 0 ? distance < 7 : distance > -7 && pastWeekdays == PastWeekdays::Named;
    if (isNear) return locale.dayName(dateOf(day).dayOfWeek(), QLocale::ShortFormat);
    return dateOf(day).year() == dateOf(today).year() ? dayAndMonth(day, locale)
                                                      : dayMonthAndYear(day, locale);
}
