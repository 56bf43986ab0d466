#include "model/store/FilterCondition.h"

#include "corvexkit/time/CXClock.h"
#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/FindAll.h"
#include "model/store/StoreFailure.h"
#include "model/store/TaskPlace.h"
#include "model/text/SearchWords.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Condition = CXSmartFilterCondition;
using std::chrono::days;

constexpr std::pair<KWTaskKind, CXItemKind> kinds[]{{KWTaskKindText, CXItemKind::Task},
                                                    {KWTaskKindChecklist, CXItemKind::Checklist},
                                                    {KWTaskKindNote, CXItemKind::Note}};

template <class Numbers>
SqlValue numberList(const Numbers &numbers)
{
    QJsonArray array;
    for (const auto each : numbers)
        array.append(qint64(each));
    return QString::fromUtf8(QJsonDocument{array}.toJson(QJsonDocument::Compact));
}

/// Writes the questions of one filter.
class Asking {
public:
    Asking(const CXSmartFilterFrame &frame, SqlValues &values) : m_frame(frame), m_values(values) {}

    std::string of(const Condition &condition)
    {
        const std::string asked = std::visit(*this, condition.question());
        return condition.isNegated() ? "NOT (" + asked + ")" : asked;
    }

    std::string operator()(const Condition::Group &group)
    {
        const bool all = group.join == Condition::Group::Join::All;
        std::string joined;
        for (const Condition &each : group.parts)
            joined += (joined.empty() ? "(" : all ? " AND " : " OR ") + of(each);
        if (joined.empty()) return all ? "1" : "0";
        return joined + ")";
    }
    // The plus keeps the planner from beginning here: see Way.
    std::string operator()(const Condition::Lists &lists)
    {
        return with("+t.projectID IN (SELECT value FROM json_each(?))", idList(lists.ids));
    }
    std::string operator()(const Condition::Folders &folders)
    {
        return with("+t.projectID IN (SELECT sid FROM projects WHERE groupID IN "
                    "(SELECT value FROM json_each(?)))",
                    idList(folders.ids));
    }
    std::string operator()(const Condition::Tags &tags)
    {
        if (tags.names.isEmpty()) return "t.tags <> '[]'";
        return with("t.id IN (SELECT task FROM taskTags WHERE name IN (SELECT value FROM json_each(?)))",
                    idList(m_frame.withChildTags(tags.names)));
    }
    std::string operator()(const Condition::Dates &dates)
    {
        std::string joined;
        for (const CXDateSpan &each : dates.spans)
            joined += (joined.empty() ? "(" : " OR ") + of(each);
        return joined + ")";
    }
    std::string operator()(const Condition::Priorities &priorities)
    {
        return with("t.priority IN (SELECT value FROM json_each(?))", numberList(priorities.values));
    }
    std::string operator()(const Condition::Assignees &assignees)
    {
        std::string who = with("(t.assignee IN (SELECT value FROM json_each(?))", numberList(assignees.ids));
        if (assignees.nobody) who += " OR t.assignee = -1";
        if (assignees.me) who += with(" OR t.assignee = ?", m_frame.me);
        if (assignees.other) who += with(" OR t.assignee NOT IN (-1, ?)", m_frame.me);
        return who + ")";
    }
    std::string operator()(const Condition::Words &words)
    {
        const SearchPhrase phrase{words.text};
        if (phrase.isEmpty()) return "0";
        return with("t.id IN (SELECT rowid FROM taskSearch WHERE taskSearch MATCH ?)",
                    phrase.matchExpression());
    }
    std::string operator()(const Condition::Kinds &wanted)
    {
        QStringList texts;
        for (const auto &[kind, itemKind] : kinds)
            if (wanted.kinds.testFlag(itemKind)) texts.append(textOf(kind));
        return with("t.kind IN (SELECT value FROM json_each(?))", idList(texts));
    }

private:
    std::string of(const CXDateSpan &span)
    {
        if (span.isOfDays()) return reachesInto(span.days(m_frame));
        switch (span.kind) {
        case CXDateSpan::Kind::None:
            return "t.startDate IS NULL";
        case CXDateSpan::Kind::Overdue:
            return "(t.startDate IS NOT NULL AND NOT " + reachesBeyond(m_frame.today) + ")";
        case CXDateSpan::Kind::Repeats:
            return "(t.startDate IS NOT NULL AND t.repeatRule <> '')";
        default:
            return "t.startDate IS NOT NULL";
        }
    }
    std::string reachesInto(const CXDayRange &range)
    {
        std::string reaches = "(t.startDate IS NOT NULL";
        if (range.until) reaches += with(" AND t.startDate < ?", startOf(*range.until + days{1}));
        if (range.from) reaches += " AND " + reachesBeyond(*range.from);
        return reaches + ")";
    }
    // Asked of tasks with a date alone.
    std::string reachesBeyond(Day day)
    {
        const SqlValue start = startOf(day);
        m_values.insert(m_values.end(), 2, start);
        return "(t.startDate >= ? OR ifnull(t.endDate > ?, 0))";
    }
    SqlValue startOf(Day day) const { return storedInstant(m_frame.zone.startOfDay(day)); }
    std::string with(const char *text, SqlValue value)
    {
        m_values.push_back(std::move(value));
        return text;
    }

    const CXSmartFilterFrame &m_frame;
    SqlValues &m_values;
};

// What every task must fit of what is asked so; nothing where that is no such question.
template <class Question>
const Question *demandFor(const std::vector<Condition> &demands)
{
    for (const Condition &each : demands)
        if (const auto *question = std::get_if<Question>(&each.question()); question && !each.isNegated())
            return question;
    return nullptr;
}

// The day after all of the dates, where there is one.
std::optional<Day> endOf(const Condition::Dates &dates, const CXSmartFilterFrame &frame)
{
    Day end = Day::min();
    for (const CXDateSpan &each : dates.spans) {
        const bool isPast = each.kind == CXDateSpan::Kind::Overdue;
        const std::optional<Day> last = isPast ? std::optional{frame.today} : each.days(frame).until;
        if (!last) return std::nullopt;
        end = std::max(end, *last + days{1});
    }
    return end;
}

QHash<QString, QStringList> childTagsOf(const QString &userID, Connection &connection)
{
    QHash<QString, QStringList> tags;
    auto statement = connection.prepare(
        "SELECT parent, name FROM tags WHERE userID = ? AND isDeleted = 0 AND parent NOT IN ('', name)");
    statement.bind(1, userID);
    QString parent, name;
    while (statement->executeStep()) {
        columns::read(statement->getColumn(0), parent);
        columns::read(statement->getColumn(1), name);
        tags[parent].append(name);
    }
    return tags;
}

} // namespace

// What the index of its way is searched by is said once more in front.
FilterCondition FilterCondition::of(const CXSmartFilter &filter, const CXSmartFilterFrame &frame)
{
    FilterCondition condition;
    const std::vector<Condition> demanded = filter.condition().demands();
    const auto *tags = demandFor<Condition::Tags>(demanded);
    const auto *dates = demandFor<Condition::Dates>(demanded);
    const auto end = dates ? endOf(*dates, frame) : std::nullopt;
    if (demandFor<Condition::Words>(demanded) || (tags && !tags->names.isEmpty())) {
        condition.way = Way::Chosen;
    } else if (const auto *lists = demandFor<Condition::Lists>(demanded)) {
        condition.way = Way::Lists;
        condition.where = "t.projectID IN (SELECT value FROM json_each(?)) AND ";
        condition.values.push_back(idList(lists->ids));
    } else if (end) {
        condition.where = "t.startDate < ? AND ";
        condition.values.push_back(storedInstant(frame.zone.startOfDay(*end)));
    }
    condition.where += Asking{frame, condition.values}.of(filter.condition());
    return condition;
}

CXSmartFilterFrame StoredFilter::frameOf(const QString &userID, const CXClock &clock, Connection &connection)
{
    const std::int64_t weekday =
        connection.number("SELECT firstWeekday FROM userSettings WHERE userID = ?", {userID});
    return {.zone = clock.zone(),
            .today = clock.today(),
            .firstWeekday = std::chrono::weekday{unsigned(std::clamp<std::int64_t>(weekday, 1, 7) - 1)},
            .me = connection.number("SELECT userServerID FROM users WHERE sid = ?", {userID}),
            .childTags = childTagsOf(userID, connection)};
}

Result<CXSmartFilterFrame> StoredFilter::frameOf(const QString &userID, ObjectContext &context)
{
    try {
        return frameOf(userID, context.clock(), context.connection());
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

std::optional<Result<CXSmartFilter>> StoredFilter::find(const QString &filterID, Connection &connection)
{
    auto statement = connection.prepare("SELECT rule FROM filters WHERE sid = ? AND isDeleted = 0");
    statement.bind(1, filterID);
    if (!statement->executeStep()) return std::nullopt;
    QString rule;
    columns::read(statement->getColumn(0), rule);
    return CXSmartFilter::parse(rule);
}

CXFilteredItem StoredFilter::itemOf(const TaskPlace &place, const QString &folderID)
{
    const auto kind = std::ranges::find(kinds, place.kind, [](const auto &each) { return each.first; });
    return {
        .listID = place.projectID,
        .folderID = folderID,
        .tags = place.tags,
        .startDate = place.startDate,
        .endDate = place.endDate,
        .repeats = place.repeats,
        .priority = place.priority,
        .assignee = place.assignee,
        .kind = kind->second,
        .hasWords = [texts = place.texts](const QString &words) { return SearchPhrase{words}.fits(texts); }};
}
