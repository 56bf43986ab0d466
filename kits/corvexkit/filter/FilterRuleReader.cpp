#include "corvexkit/filter/FilterRuleReader.h"

#include "corvexkit/filter/FilterRuleWords.h"
#include "corvexkit/time/TimeText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;
namespace words = FilterRuleWords;

namespace {

using Condition = CXSmartFilterCondition;

constexpr int mostConditions = 200;
constexpr int deepest = 40; // steps of a way such as “all[0].not.any[2]”
const QStringList questions{u"all"_s,  u"any"_s,      u"not"_s,      u"list"_s, u"folder"_s, u"tag"_s,
                            u"date"_s, u"priority"_s, u"assignee"_s, u"text"_s, u"kind"_s};

QString quoted(const QJsonValue &value)
{
    QString text = value.isString()   ? value.toString()
                   : value.isDouble() ? QString::number(value.toDouble(), 'g', 15)
                   : value.isBool()   ? (value.toBool() ? u"true"_s : u"false"_s)
                   : value.isArray()  ? u"[…]"_s
                   : value.isObject() ? u"{…}"_s
                                      : u"null"_s;
    if (text.size() > 20) text = text.left(20) + u'…';
    return u'“' + text + u'”';
}

std::optional<std::int64_t> wholeNumber(const QJsonValue &value)
{
    constexpr double exact = 9007199254740992.0; // beyond this a double skips whole numbers
    const double number = value.toDouble(0.5);
    if (number != double(std::int64_t(std::clamp(number, -exact, exact)))) return std::nullopt;
    return std::int64_t(number);
}

} // namespace

class FilterRuleReader::Step {
public:
    Step(FilterRuleReader &reader, const QString &name) : m_reader(reader), m_before(reader.m_where)
    {
        if (!m_before.isEmpty() && !name.startsWith(u'[')) m_reader.m_where += u'.';
        m_reader.m_where += name;
        ++m_reader.m_depth;
    }
    ~Step()
    {
        m_reader.m_where = m_before;
        --m_reader.m_depth;
    }

private:
    FilterRuleReader &m_reader;
    QString m_before;
};

Result<CXSmartFilterCondition> FilterRuleReader::read(const QString &rule)
{
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(rule.toUtf8(), &problem);
    if (problem.error != QJsonParseError::NoError)
        return Error{
            u"The filter's rule is no JSON: %1 at byte %2."_s.arg(problem.errorString()).arg(problem.offset)};
    const QJsonObject object = document.object();
    const QJsonValue version = object.value(u"version"_s);
    if (!version.isUndefined() && version.toDouble() > words::version)
        return Error{u"The filter's rule was written by a later version."_s};
    const CXSmartFilterCondition condition =
        readCondition(document.isObject() ? QJsonValue{object} : QJsonValue{document.array()});
    if (m_error) return *m_error;
    return condition;
}

void FilterRuleReader::fail(const QString &reason)
{
    if (m_error) return;
    const QString where = m_where.isEmpty() ? u"at its beginning"_s : u"at “%1”"_s.arg(m_where);
    m_error = Error{u"The filter's rule cannot be read %1: %2."_s.arg(where, reason)};
}

CXSmartFilterCondition FilterRuleReader::readCondition(const QJsonValue &value)
{
    if (m_error) return {};
    if (++m_conditions > mostConditions)
        return fail(u"it has more than %1 conditions"_s.arg(mostConditions)), Condition{};
    if (m_depth > deepest) return fail(u"conditions stand too deep in each other"_s), Condition{};
    if (!value.isObject()) return fail(u"a condition is an object, not %1"_s.arg(quoted(value))), Condition{};

    const QJsonObject object = value.toObject();
    QString asked;
    for (const QString &each : questions) {
        if (!object.contains(each)) continue;
        if (!asked.isEmpty())
            return fail(u"a condition asks one thing, not “%1” and “%2”"_s.arg(asked, each)), Condition{};
        asked = each;
    }
    if (asked.isEmpty()) return fail(u"a condition that asks nothing known"_s), Condition{};
    const Step step{*this, asked};
    if (asked == u"not") return readCondition(object.value(asked)).negated();
    return readQuestion(asked, object.value(asked));
}

CXSmartFilterCondition::Question FilterRuleReader::readQuestion(const QString &member,
                                                                const QJsonValue &value)
{
    if (member == u"all") return readGroup(Condition::Group::Join::All, value);
    if (member == u"any") return readGroup(Condition::Group::Join::Any, value);
    if (member == u"list") return Condition::Lists{readTexts(value)};
    if (member == u"folder") return Condition::Folders{readTexts(value)};
    if (member == u"tag") {
        if (value.isArray() && value.toArray().isEmpty()) return Condition::Tags{};
        return Condition::Tags{readTexts(value)};
    }
    if (member == u"date") return readDates(value);
    if (member == u"priority") return readPriorities(value);
    if (member == u"assignee") return readAssignees(value);
    if (member == u"kind") return readKinds(value);
    const QString text = value.toString().simplified();
    if (text.isEmpty()) fail(u"words are needed"_s);
    return Condition::Words{text};
}

template <class Read>
void FilterRuleReader::forEach(const QJsonValue &value, Read readEach)
{
    const QJsonArray array = value.toArray();
    if (!value.isArray()) return fail(u"an array is needed, not %1"_s.arg(quoted(value)));
    if (array.isEmpty()) return fail(u"the array is empty"_s);
    for (qsizetype i = 0; i < array.size() && !m_error; ++i) {
        const Step step{*this, u"[%1]"_s.arg(i)};
        readEach(array.at(i));
    }
}

CXSmartFilterCondition::Group FilterRuleReader::readGroup(Condition::Group::Join join,
                                                          const QJsonValue &value)
{
    Condition::Group group{join, {}};
    // All of nothing fits everything; any of nothing would fit nothing.
    if (join == Condition::Group::Join::All && value.isArray() && value.toArray().isEmpty()) return group;
    forEach(value, [&](const QJsonValue &each) { group.parts.push_back(readCondition(each)); });
    return group;
}

QStringList FilterRuleReader::readTexts(const QJsonValue &value)
{
    QStringList texts;
    forEach(value, [&](const QJsonValue &each) {
        if (each.toString().isEmpty()) return fail(u"a text is needed, not %1"_s.arg(quoted(each)));
        if (!texts.contains(each.toString())) texts.append(each.toString());
    });
    return texts;
}

CXSmartFilterCondition::Dates FilterRuleReader::readDates(const QJsonValue &value)
{
    Condition::Dates dates;
    forEach(value, [&](const QJsonValue &each) {
        const CXDateSpan span = readSpan(each);
        if (!dates.spans.contains(span)) dates.spans.append(span);
    });
    return dates;
}

CXDateSpan FilterRuleReader::readSpan(const QJsonValue &value)
{
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        return object.contains(u"days"_s) ? readRelative(object.value(u"days"_s)) : readFixed(object);
    }
    const auto kind = words::valueOf(words::dates, value.toString());
    if (!kind) fail(u"%1 is no date"_s.arg(quoted(value)));
    return {.kind = kind.value_or(CXDateSpan::Kind::Any)};
}

CXDateSpan FilterRuleReader::readRelative(const QJsonValue &value)
{
    const Step step{*this, u"days"_s};
    const QJsonArray days = value.toArray();
    const auto first = wholeNumber(days.at(0));
    const auto last = wholeNumber(days.at(1));
    constexpr int farthest = CXDateSpan::farthest;
    if (days.size() != 2 || !first || !last || *first < -farthest || *last > farthest) {
        fail(u"two whole numbers from -%1 to %1 are needed"_s.arg(farthest));
        return {};
    }
    if (*first > *last) fail(u"the first day comes after the last"_s);
    return CXDateSpan::relative(int(*first), int(*last));
}

CXDateSpan FilterRuleReader::readFixed(const QJsonObject &days)
{
    const CXDayRange range{readDay(days, u"from"_s), readDay(days, u"until"_s)};
    if (!range.from && !range.until) fail(u"a stretch of days needs “from” or “until”"_s);
    if (range.from && range.until && *range.from > *range.until)
        fail(u"the first day comes after the last"_s);
    return CXDateSpan::fixed(range);
}

std::optional<Day> FilterRuleReader::readDay(const QJsonObject &days, const QString &member)
{
    if (!days.contains(member)) return std::nullopt;
    const Step step{*this, member};
    const auto day = TimeText::toDay(days.value(member).toString());
    if (!day) fail(u"%1 is no day such as “2030-05-01”"_s.arg(quoted(days.value(member))));
    return day;
}

CXSmartFilterCondition::Priorities FilterRuleReader::readPriorities(const QJsonValue &value)
{
    QList<int> given;
    forEach(value, [&](const QJsonValue &each) {
        const auto number = wholeNumber(each);
        if (!number || std::ranges::find(words::priorities, *number) == words::priorities.end())
            return fail(u"a priority is 0, 1, 3 or 5, not %1"_s.arg(quoted(each)));
        given.append(int(*number));
    });
    Condition::Priorities priorities;
    for (const int each : words::priorities)
        if (given.contains(each)) priorities.values.append(each);
    return priorities;
}

CXSmartFilterCondition::Assignees FilterRuleReader::readAssignees(const QJsonValue &value)
{
    Condition::Assignees assignees;
    forEach(value, [&](const QJsonValue &each) {
        const auto id = wholeNumber(each);
        if (each.isDouble() && id && *id >= 0) {
            if (!assignees.ids.contains(*id)) assignees.ids.append(*id);
        } else if (const auto member = words::valueOf(words::assignees, each.toString())) {
            assignees.*(*member) = true;
        } else {
            fail(u"%1 is nobody tasks are assigned to"_s.arg(quoted(each)));
        }
    });
    return assignees;
}

CXSmartFilterCondition::Kinds FilterRuleReader::readKinds(const QJsonValue &value)
{
    Condition::Kinds kinds;
    forEach(value, [&](const QJsonValue &each) {
        if (const auto kind = words::valueOf(words::kinds, each.toString()))
            kinds.kinds |= *kind;
        else
            fail(u"%1 is no kind of task"_s.arg(quoted(each)));
    });
    return kinds;
}
