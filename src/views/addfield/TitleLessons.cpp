#include "views/addfield/TitleLessons.h"

#include "model/settings/KWLocalizedString.h"

using namespace Qt::StringLiterals;

QList<TitleLesson> titleLessons()
{
    return {
        {u"tomorrow 5pm"_s, KWLocalizedString("a day and a time"), true},
        {u"!high"_s, KWLocalizedString("a priority: high, medium, low or none"), true},
        {u"#errand"_s, KWLocalizedString("a tag, made if it is missing"), true},
        {u"~Groceries"_s, KWLocalizedString("a list, made if it is missing"), true},
        {u"every weekday 9am"_s, KWLocalizedString("a task that repeats"), true},
        {u"friday 3-5pm"_s, KWLocalizedString("a start and an end"), true},
        {u"5pm remind me 10 minutes before"_s, KWLocalizedString("a reminder"), true},
        {u"in 3 days"_s, KWLocalizedString("a day counted from today"), false},
        {u"every month until june"_s, KWLocalizedString("a repeat that ends"), false},
        {u"@"_s, KWLocalizedString("somebody who shares the list"), false},
        {u"*"_s, KWLocalizedString("a day to choose"), false},
        {u"“tomorrow”"_s, KWLocalizedString("in quotation marks a date stays text"), false},
    };
}
