#include "integration/summary/SummaryChoice.h"

#include "model/text/DayText.h"

#include <QJsonArray>

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

template <class Value>
struct Word {
    const char *text;
    Value value;
};

constexpr Word<SummaryChoice::Range> ranges[] = {{"today", SummaryChoice::Range::Today},
                                                 {"yesterday", SummaryChoice::Range::Yesterday},
                                                 {"thisWeek", SummaryChoice::Range::ThisWeek},
                                                 {"lastWeek", SummaryChoice::Range::LastWeek},
                                                 {"thisMonth", SummaryChoice::Range::ThisMonth},
                                                 {"lastMonth", SummaryChoice::Range::LastMonth},
                                                 {"days", SummaryChoice::Range::Days}};
constexpr Word<SummaryChoice::Group> groups[] = {{"day", SummaryChoice::Group::ByDay},
                                                 {"list", SummaryChoice::Group::ByList},
                                                 {"status", SummaryChoice::Group::ByStatus}};
constexpr Word<SummaryChoice::Status> statusWords[] = {{"completed", SummaryChoice::Status::Completed},
                                                       {"open", SummaryChoice::Status::Open}};
constexpr Word<SummaryChoice::Detail> detailWords[] = {
    {"list", SummaryChoice::Detail::List},   {"tags", SummaryChoice::Detail::Tags},
    {"date", SummaryChoice::Detail::Date},   {"completion", SummaryChoice::Detail::Completion},
    {"text", SummaryChoice::Detail::Text},   {"focusTime", SummaryChoice::Detail::FocusTime},
    {"focus", SummaryChoice::Detail::Focus}, {"habits", SummaryChoice::Detail::Habits}};

template <class Value, std::size_t size>
Value valueOf(const QJsonValue &json, const Word<Value> (&words)[size], Value otherwise)
{
    const QString text = json.toString();
    for (const Word<Value> &each : words)
        if (text == QLatin1StringView{each.text}) return each.value;
    return otherwise;
}

template <class Value, std::size_t size>
QString wordOf(Value value, const Word<Value> (&words)[size])
{
    return QString::fromLatin1(std::ranges::find(words, value, &Word<Value>::value)->text);
}

template <class Value, std::size_t size>
QFlags<Value> flagsOf(const QJsonValue &json, const Word<Value> (&words)[size], QFlags<Value> otherwise)
{
    if (!json.isArray()) return otherwise;
    QFlags<Value> flags;
    for (const Word<Value> &each : words)
        flags.setFlag(each.value, json.toArray().contains(QString::fromLatin1(each.text)));
    return flags;
}

template <class Value, std::size_t size>
QJsonArray wordsOf(QFlags<Value> flags, const Word<Value> (&words)[size])
{
    QJsonArray array;
    for (const Word<Value> &each : words)
        if (flags.testFlag(each.value)) array.append(QString::fromLatin1(each.text));
    return array;
}

Day dayOr(const QJsonValue &json, Day otherwise)
{
    const QDate date = QDate::fromString(json.toString(), Qt::ISODate);
    if (!date.isValid() || date.year() < 1 || date.year() > 9999) return otherwise;
    return Day{year{date.year()} / date.month() / date.day()};
}

Day firstOfMonth(Day day)
{
    const year_month_day date{day};
    return Day{date.year() / date.month() / 1};
}

void setDays(SummaryChoice &choice, Day today, weekday firstWeekday, const QJsonObject &json)
{
    const Day week = today - (weekday{today} - firstWeekday);
    const auto take = [&](Day first, Day last) {
        choice.first = first;
        choice.last = last;
    };
    switch (choice.range) {
    case SummaryChoice::Range::Today:
        return take(today, today);
    case SummaryChoice::Range::Yesterday:
        return take(today - days{1}, today - days{1});
    case SummaryChoice::Range::ThisWeek:
        return take(week, week + days{6});
    case SummaryChoice::Range::LastWeek:
        return take(week - days{7}, week - days{1});
    case SummaryChoice::Range::ThisMonth:
        return take(firstOfMonth(today), firstOfMonth(firstOfMonth(today) + days{31}) - days{1});
    case SummaryChoice::Range::LastMonth:
        return take(firstOfMonth(firstOfMonth(today) - days{1}), firstOfMonth(today) - days{1});
    case SummaryChoice::Range::Days:
        break;
    }
    const auto [first, last] = std::minmax({dayOr(json[u"from"_s], today), dayOr(json[u"to"_s], today)});
    const Day earliest = last - days{SummaryChoice::mostDays - 1};
    choice.isShortened = first < earliest;
    take(std::max(first, earliest), last);
}

} // namespace

SummaryChoice SummaryChoice::fromJson(const QJsonObject &json, Day today, weekday firstWeekday)
{
    SummaryChoice choice;
    choice.range = valueOf(json[u"range"_s], ranges, choice.range);
    setDays(choice, today, firstWeekday, json);
    for (const QJsonValue each : json[u"lists"_s].toArray())
        if (each.isString()) choice.listIDs.append(each.toString());
    choice.statuses = flagsOf(json[u"statuses"_s], statusWords, choice.statuses);
    choice.fields = flagsOf(json[u"fields"_s], detailWords, choice.fields);
    choice.group = valueOf(json[u"group"_s], groups, choice.group);
    return choice;
}

QJsonObject SummaryChoice::toJson() const
{
    return {{u"range"_s, wordOf(range, ranges)},
            {u"from"_s, dateOf(first).toString(Qt::ISODate)},
            {u"to"_s, dateOf(last).toString(Qt::ISODate)},
            {u"lists"_s, QJsonArray::fromStringList(listIDs)},
            {u"statuses"_s, wordsOf(statuses, statusWords)},
            {u"fields"_s, wordsOf(fields, detailWords)},
            {u"group"_s, wordOf(group, groups)}};
}
