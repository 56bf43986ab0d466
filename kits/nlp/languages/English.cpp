#include "nlp/languages/EnglishRules.h"
#include "nlp/languages/Languages.h"
#include "nlp/languages/WordValues.h"

namespace nlp {

namespace readings::englishTables {

using enum Symbol;

constexpr Word words[] = {
    {L"sunday", Weekday, 0},
    {L"monday", Weekday, 1},
    {L"tuesday|tue|tues|tue.|tues.", Weekday, 2},
    {L"wednesday|weds|wednsday|wensday|wendesday", Weekday, 3},
    {L"thursday|thu|thur|thurs|thu.|thur.|thurs.|thrusday|thursdy", Weekday, 4},
    {L"friday|fri|fri.", Weekday, 5},
    {L"saturday|saterday", Weekday, 6},
    {L"sun|sun.", AmbiguousWeekday, 0},
    {L"mon|mon.", AmbiguousWeekday, 1},
    {L"wed|wed.", AmbiguousWeekday, 3},
    {L"sat|sat.", AmbiguousWeekday, 6},

    {L"sundays", PluralWeekday, 0},
    {L"mondays", PluralWeekday, 1},
    {L"tuesdays", PluralWeekday, 2},
    {L"wednesdays", PluralWeekday, 3},
    {L"thursdays", PluralWeekday, 4},
    {L"fridays", PluralWeekday, 5},
    {L"saturdays", PluralWeekday, 6},
    {L"weekdays|workdays", PluralWeekday, EachWorkday},
    {L"weekends", PluralWeekday, EachWeekendDay},

    {L"january|jan|jan.", Month, 1},
    {L"february|feb|feb.|febuary", Month, 2},
    {L"march|mar", Month, 3 | AmbiguousWord},
    {L"mar.", Month, 3},
    {L"april|apr|apr.", Month, 4},
    {L"may", Month, 5 | AmbiguousWord},
    {L"june|jun|jun.", Month, 6},
    {L"july|jul|jul.", Month, 7},
    {L"august|aug|aug.", Month, 8},
    {L"september|sep|sept|sep.|sept.", Month, 9},
    {L"october|oct|oct.", Month, 10},
    {L"november|nov|nov.", Month, 11},
    {L"december|dec|dec.", Month, 12},

    {L"one", Number, 1},
    {L"two|a couple of|a couple", Number, 2},
    {L"three", Number, 3},
    {L"four", Number, 4},
    {L"five", Number, 5},
    {L"six", Number, 6},
    {L"seven", Number, 7},
    {L"eight", Number, 8},
    {L"nine", Number, 9},
    {L"ten", Number, 10},
    {L"eleven", Number, 11},
    {L"twelve", Number, 12},
    {L"fifteen", Number, 15},
    {L"twenty", Number, 20},
    {L"thirty", Number, 30},
    {L"forty", Number, 40},
    {L"forty-five", Number, 45},
    {L"sixty", Number, 60},
    {L"ninety", Number, 90},
    {L"first", Ordinal, 1},
    {L"second", Ordinal, 2},
    {L"third", Ordinal, 3},
    {L"fourth", Ordinal, 4},
    {L"fifth", Ordinal, 5},
    {L"a|an", Article, 1},

    {L"minute|minutes|min|mins|minutes'", Unit, value(nlp::Unit::Minute)},
    {L"m|min|mins|minutes", MinuteMark},
    {L"hour|hours|hr|hrs|h|hours'|hour's time", Unit, value(nlp::Unit::Hour)},
    {L"day|days|days'|day's time", Unit, value(nlp::Unit::Day)},
    {L"week|weeks|wk|wks|weeks'|week's time", Unit, value(nlp::Unit::Week)},
    {L"month|months|months'|month's time", Unit, value(nlp::Unit::Month)},
    {L"year|years|yr|yrs|years'|year's time", Unit, value(nlp::Unit::Year)},

    {L"today|later today", RelativeDay, 0},
    {L"tomorrow|tmr|tmrw|tmw|tomorow|tommorow|tommorrow|tomorrrow", RelativeDay, 1},
    {L"day after tomorrow|the day after tomorrow", RelativeDay, 2},
    {L"tonight|tonite", DayWithPart, dayWith(0, nlp::DayPart::Night)},
    {L"yesterday|day before yesterday|the day before yesterday", PastDay},

    {L"morning|mornings", DayPart, value(nlp::DayPart::Morning)},
    {L"afternoon|afternoons", DayPart, value(nlp::DayPart::Afternoon)},
    {L"evening|evenings", DayPart, value(nlp::DayPart::Evening)},
    {L"night|nights", DayPart, value(nlp::DayPart::Night)},
    {L"am|a.m.|a.m", Meridiem, 0},
    {L"pm|p.m.|p.m", Meridiem, 1},
    {L"noon|midday", NamedTime, 12},
    {L"midnight", NamedTime, 0 | AmbiguousWord},
    {L"o'clock|oclock", OClock},
    {L"fortnight|a fortnight|a fortnight's time", Fortnight},
    {L"half", Half},
    {L"quarter", Quarter},
    {L"past", Past},

    {L"to|till|til|until|through|thru", To},
    {L"until|till|til|through|thru", Until},
    {L"from|starting|starting from|starting on|beginning", From},
    {L"between", Between},
    {L"at", At},
    {L"by|before|b4|around|after|no later than|not later than", By},
    {L"on|by|due|due:|due on|due by|is due|is due on|is due by|are due|are due on|are due by|before|b4|week "
     L"of|the week of|no later than|not later than|deadline:|due date:",
     On},
    {L"after", After},
    {L"in|within", In},
    {L"for", For},
    {L"later|from now", Later},
    {L"time", Time},
    {L"ago", Ago},
    {L"before|beforehand|early|earlier|ahead|prior|in advance", Before},
    {L"every|each|once every|once a", Every},
    {L"except|except on|except for|but not on|apart from", Except},
    {L"other|second|alternate", Other},
    {L"next", Next, 1},
    {L"this|the coming|this coming", This},
    {L"last|past|previous|since", Last},
    {L"the", The},
    {L"of", Of},
    {L"and", And},
    {L"or", Or},
    {L"to", MoveTo},
    {L"is|will be", Copula},
    {L"postpone|postponed|reschedule|rescheduled|move|moved", Mover},
    {L"my|our|your|their|his", Possessive},
    {L"times", Times},
    {L"end of|the end of|at the end of|by the end of|by end of|at end of", EndOf},
    {L"beginning of|the beginning of|at the beginning of|by the beginning of|start of|the start of|at the "
     L"start of|by the start of",
     StartOf},
    {L"mid|by mid|in mid|middle of|the middle of|in the middle of|by the middle of", MonthPart, 15},
    {L"eod|end of day|end of the day|by end of day|by the end of day|by end of the day|by the end of the "
     L"day|at the end of the day|at end of day|the end of the day|end of today|by end of today|by the end of "
     L"today|at the end of today|close of business",
     PeriodEnd, value(nlp::Unit::Day)},
    {L"eow", PeriodEnd, value(nlp::Unit::Week)},
    {L"eom", PeriodEnd, value(nlp::Unit::Month)},
    {L"eoy", PeriodEnd, value(nlp::Unit::Year)},
    {L"weekend|weekends|wknd", Weekend},
    {L"over the weekend", FreeWeekend},
    {L"weekday|weekdays|workday|workdays|working day|business day|school day|school days", Workday},
    {L"daily", Frequency, every(1, nlp::Unit::Day) | AmbiguousWord},
    {L"everyday", Frequency, every(1, nlp::Unit::Day) | AmbiguousWord},
    {L"weekly", Frequency, every(1, nlp::Unit::Week) | AmbiguousWord},
    {L"every fortnight|each fortnight", Frequency, every(2, nlp::Unit::Week)},
    {L"biweekly|fortnightly", Frequency, every(2, nlp::Unit::Week) | AmbiguousWord},
    {L"monthly", Frequency, every(1, nlp::Unit::Month) | AmbiguousWord},
    {L"quarterly|every quarter|each quarter", Frequency, every(3, nlp::Unit::Month) | AmbiguousWord},
    {L"yearly|annually", Frequency, every(1, nlp::Unit::Year) | AmbiguousWord},
    {L"remind me|remind me to|remind me that|please remind me to|please remind me", Remind, 1},

    {L"street|st|st.|avenue|ave|ave.|road|rd|rd.|lane|ln|boulevard|blvd|blvd.|drive|square|terrace|alley|"
     L"plaza|highway",
     Street},
    {L"gmt|utc|est|edt|et|cst|cdt|mst|mdt|pst|pdt|pt|bst|cet|cest|eet|ist|jst|kst|hkt|sgt|aest|aedt", Zone},

    {L"vs|vs.|with|without|about|re|but|then|near|sharp|also|as|if|so|regarding", FunctionWord},
    {L"km|mile|miles|meter|meters|m|kg|g|lb|lbs|people|persons|guests|participants|items|pages|page|apples|"
     L"eggs|yard|yards|foot|feet|ft|ounces|oz|liters|litres|degrees|copies|pieces|bottles|boxes|cups|cup|"
     L"stars|dollars|euros|bucks|percent|points|point|chapters|reps|sets|times|players|tickets|seconds|sec|"
     L"secs|inch|inches|cm|mm|tsp|tbsp|steps|exercises|problems|sections|lessons|verses|slides|rows|lines|"
     L"questions|tests|bugs|users|rooms|time|scale|ratio",
     Measure},
    {L"ratio|ratio of|score|score of|scored|scale|scale of|aspect|odds|odds "
     L"of|verse|psalm|chapter|version|episode|count|rate|rated|rank|level|levels|numbers|number|grade|grades|"
     L"won|lost|beat|part|slide|step|page|pages|exercises|problems|sections|lessons|verses|slides|rows|lines|"
     L"steps|items|tasks|parts|pp|pp.|chapters|task|item|lesson|section|figure|genesis|"
     L"exodus|leviticus|psalms|proverbs|isaiah|romans|corinthians|revelation",
     ScoreWord},

    // Those that differ from country to country ("mother's day") are left out.
    {L"new year's day|new years day", Holiday, fixedDay(1, 1)},
    {L"valentine's day|valentines day", Holiday, fixedDay(2, 14)},
    {L"st patrick's day|st. patrick's day|st patricks day", Holiday, fixedDay(3, 17)},
    {L"april fools|april fools day|april fool's day|april fools' day", Holiday, fixedDay(4, 1)},
    {L"halloween", Holiday, fixedDay(10, 31)},
    {L"christmas eve|xmas eve", Holiday, fixedDay(12, 24)},
    {L"christmas eve|xmas eve", HolidayDate, fixedDay(12, 24)},
    {L"christmas|xmas|christmas day|xmas day", Holiday, fixedDay(12, 25)},
    {L"christmas day|xmas day", HolidayDate, fixedDay(12, 25)},
    {L"boxing day", Holiday, fixedDay(12, 26)},
    {L"boxing day", HolidayDate, fixedDay(12, 26)},
    {L"new year's eve|new years eve|nye", Holiday, fixedDay(12, 31)},
    {L"new year's eve|new years eve|nye", HolidayDate, fixedDay(12, 31)},
    {L"thanksgiving|thanksgiving day", Holiday, nthWeekday(4, 4, 11)},
    {L"black friday", Holiday, nthWeekday(4, 4, 11, 1)},
    {L"cyber monday", Holiday, nthWeekday(4, 4, 11, 4)},
    {L"ash wednesday", Holiday, easter(-46)},
    {L"palm sunday", Holiday, easter(-7)},
    {L"good friday", Holiday, easter(-2)},
    {L"easter|easter sunday", Holiday, easter(0)},
    {L"easter monday", Holiday, easter(1)},
    {L"ascension day", Holiday, easter(39)},
    {L"pentecost|whit sunday", Holiday, easter(49)},
    {L"whit monday", Holiday, easter(50)},

    // Idioms whose parts would be read.
    {L"x daily|x weekly|twice daily|twice weekly|twice monthly|twice yearly|thrice daily|times daily|times "
     L"weekly",
     Plain},
    {L"every quarter of|each quarter of|every quarter hour|each quarter hour|every quarter to|every quarter "
     L"past|every quarter in|each quarter in",
     Plain},
    {L"24/7|9/11|50/50|in a minute|in a moment|in an hour or so|in an hour or two|in a day or so|in a day or "
     L"two|in a week or so|in a week or two|in a month or two|one day|some day|day to day|good morning|good "
     L"afternoon|good evening|good night|sunday roast|sunday best|sunday school|sunday paper|sunday papers|5 "
     L"o'clock shadow|five o'clock shadow|3pm slump|high noon|4/4 "
     L"time|4/4 beat|4/4 drum|4/4 groove|3/4 beat|6/8 time|6/8 beat|6/8 groove|casual friday|fat "
     L"tuesday|friday night lights|sun cream|sun screen|sun hat|sun "
     L"block|sun lamp|sun lotion|the sun|in the sun|time off|time out|time sheet|time slot|time zone|may "
     L"day|day off|next to|at first|at last|at least|at "
     L"most|at once|at all",
     Plain},
};

static_assert(areOrdered(rules));

} // namespace readings::englishTables

constinit const LanguageTable english{L"en", readings::englishTables::words, readings::englishTables::rules};

} // namespace nlp
