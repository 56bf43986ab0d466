#include "corvexkit/filter/CXSmartFilterCondition.h"

#include <algorithm>
#include <iterator>

namespace {

using Condition = CXSmartFilterCondition;
constexpr CXItemKinds everyKind{CXItemKind::Task | CXItemKind::Checklist | CXItemKind::Note};

/// Answers the questions about one item.
struct Answer {
    const CXFilteredItem &item;
    const CXSmartFilterFrame &frame;

    bool operator()(const Condition::Group &group) const
    {
        const auto fits = [this](const Condition &each) { return each.matches(item, frame); };
        return group.join == Condition::Group::Join::All ? std::ranges::all_of(group.parts, fits)
                                                         : std::ranges::any_of(group.parts, fits);
    }
    bool operator()(const Condition::Lists &lists) const { return lists.ids.contains(item.listID); }
    bool operator()(const Condition::Folders &folders) const { return folders.ids.contains(item.folderID); }
    bool operator()(const Condition::Tags &tags) const
    {
        if (tags.names.isEmpty()) return !item.tags.isEmpty();
        return std::ranges::any_of(frame.withChildTags(tags.names),
                                   [this](const auto &each) { return item.tags.contains(each); });
    }
    bool operator()(const Condition::Dates &dates) const
    {
        return std::ranges::any_of(dates.spans, [this](const auto &each) { return isIn(each); });
    }
    bool operator()(const Condition::Priorities &priorities) const
    {
        return priorities.values.contains(item.priority);
    }
    bool operator()(const Condition::Assignees &assignees) const
    {
        constexpr std::int64_t nobody = -1;
        return (assignees.nobody && item.assignee == nobody) || (assignees.me && item.assignee == frame.me) ||
               (assignees.other && item.assignee != frame.me && item.assignee != nobody) ||
               assignees.ids.contains(item.assignee);
    }
    bool operator()(const Condition::Words &words) const
    {
        return item.hasWords && item.hasWords(words.text);
    }
    bool operator()(const Condition::Kinds &kinds) const { return kinds.kinds.testFlag(item.kind); }

    bool isIn(const CXDateSpan &span) const
    {
        if (span.isOfDays()) return reachesInto(span.days(frame));
        switch (span.kind) {
        case CXDateSpan::Kind::None:
            return !item.startDate;
        case CXDateSpan::Kind::Overdue:
            return item.startDate && !reachesBeyond(frame.today);
        case CXDateSpan::Kind::Repeats:
            return item.startDate && item.repeats;
        default:
            return item.startDate.has_value();
        }
    }
    bool reachesInto(const CXDayRange &range) const
    {
        if (!item.startDate) return false;
        if (range.until && *item.startDate >= startOf(*range.until + std::chrono::days{1})) return false;
        return !range.from || reachesBeyond(*range.from);
    }
    // Whether some of it is on this day or later.
    bool reachesBeyond(Day day) const
    {
        return *item.startDate >= startOf(day) || (item.endDate && *item.endDate > startOf(day));
    }
    Instant startOf(Day day) const { return frame.zone.startOfDay(day); }
};

} // namespace

CXSmartFilterCondition::CXSmartFilterCondition(Question question, bool isNegated)
    : m_question(std::move(question)), m_isNegated(isNegated)
{
}

bool CXSmartFilterCondition::matches(const CXFilteredItem &item, const CXSmartFilterFrame &frame) const
{
    return std::visit(Answer{item, frame}, m_question) != m_isNegated;
}

CXItemKinds CXSmartFilterCondition::possibleKinds(bool isNegated) const
{
    if (const auto *kinds = std::get_if<Kinds>(&m_question))
        return isNegated ? everyKind & ~kinds->kinds : kinds->kinds;
    const auto *group = std::get_if<Group>(&m_question);
    if (!group) return everyKind;
    // Of parts that are turned round, what all had to fit, any may miss.
    const bool all = (group->join == Group::Join::All) != isNegated;
    CXItemKinds kinds = all ? everyKind : CXItemKinds{};
    for (const CXSmartFilterCondition &each : group->parts) {
        const CXItemKinds possible = each.possibleKinds(each.m_isNegated != isNegated);
        kinds = all ? kinds & possible : kinds | possible;
    }
    return kinds;
}

std::vector<CXSmartFilterCondition> CXSmartFilterCondition::demands(bool isNegated) const
{
    const auto *group = std::get_if<Group>(&m_question);
    if (!group) return {CXSmartFilterCondition{m_question, isNegated}};
    const bool all = (group->join == Group::Join::All) != isNegated;
    std::vector<CXSmartFilterCondition> demands;
    if (!all && group->parts.size() > 1) return demands;
    for (const CXSmartFilterCondition &each : group->parts)
        std::ranges::move(each.demands(each.m_isNegated != isNegated), std::back_inserter(demands));
    return demands;
}

CXSmartFilterCondition CXSmartFilterCondition::withTagRenamed(const QString &name,
                                                              const QString &newName) const
{
    CXSmartFilterCondition renamed = *this;
    if (auto *group = std::get_if<Group>(&renamed.m_question))
        for (CXSmartFilterCondition &each : group->parts)
            each = each.withTagRenamed(name, newName);
    if (auto *tags = std::get_if<Tags>(&renamed.m_question)) {
        std::ranges::replace(tags->names, name, newName);
        tags->names.removeDuplicates();
    }
    return renamed;
}
