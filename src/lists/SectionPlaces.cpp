#include "lists/SectionPlaces.h"

#include "model/records/DayStamp.h"
#include "model/records/KWSmartProject.h"
#include "model/records/PriorityNames.h"
#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;
using std::chrono::days;

namespace {

// Of sections by date: the days from today on stand between.
constexpr std::int64_t overdueRank = -1;
constexpr std::int64_t laterRank = 7;
constexpr std::int64_t noDateRank = 8;

constexpr std::int64_t lastRank = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t firstRank = -1;

Day lastDayOf(const KWTaskListItemModel &row, const CXTimeZone &zone)
{
    const Day first = zone.dayOf(*row.startDate);
    return row.endDate ? std::max(first, zone.dayOf(*row.endDate - std::chrono::milliseconds{1})) : first;
}

bool isOfTomorrow(const KWListIdentifier &list)
{
    return list == KWListIdentifier::smartProject(KWSmartProject::tomorrow().identifier());
}

} // namespace

SectionPlaces::SectionPlaces(const ShownList &shown, KWTaskSortType sortType, Options options)
    : m_shown(shown), m_sortType(sortType), m_options(options)
{
    for (const ShownList::Group &each : shown.groups)
        m_ranks.insert(each.id, m_ranks.size());
}

SectionPlace SectionPlaces::of(const KWTaskListItemModel &row) const
{
    using enum SectionPlace::Zone;
    if (row.kind == KWTaskListItemModel::Kind::Habit) return {Habits}; // done ones too
    if (row.isEvent() && m_sortType != KWTaskSortTypeDate) return {Events};
    if (row.isClosed() && m_shown.partsClosedTasks()) return {Completed};
    if (row.isPinned() && m_options.showPinnedSection) return {Pinned};
    if (m_options.partsNotes && isNoteApart(row)) return {Notes};
    if (isOfFormerMember(row)) return {FormerMembers, row.assignee};
    return {Usual, rankOf(row)};
}

bool SectionPlaces::isOfFormerMember(const KWTaskListItemModel &row) const
{
    return m_sortType == KWTaskSortTypeAssignee && row.assignee != KWTaskAssignedToNobody &&
           row.assignee != m_shown.clientID && !m_ranks.contains(QString::number(row.assignee));
}

bool SectionPlaces::isNoteApart(const KWTaskListItemModel &row) const
{
    if (!row.isNote()) return false;
    if (m_sortType == KWTaskSortTypeDate) return !row.startDate;
    return m_sortType == KWTaskSortTypePriority && row.priority == KWTaskPriorityNone;
}

std::int64_t SectionPlaces::rankOf(const KWTaskListItemModel &row) const
{
    switch (m_sortType) {
    case KWTaskSortTypeDate:
        return rankOfDates(row);
    case KWTaskSortTypePriority:
        return -row.priority;
    case KWTaskSortTypeProject:
        return rankOfGroup(row.projectID);
    case KWTaskSortTypeTag:
        return rankOfTags(row.tags);
    case KWTaskSortTypeAssignee:
        return row.assignee == m_shown.clientID ? firstRank : rankOfGroup(QString::number(row.assignee));
    case KWTaskSortTypeCustom:
        return rankOfColumn(row.columnID);
    case KWTaskSortTypeCreatedTime:
        return rankOfDay(row.createdTime);
    case KWTaskSortTypeModifiedTime:
        return rankOfDay(row.modifiedTime);
    case KWTaskSortTypeCompletionDate:
        return rankOfDay(row.completionDate);
    case KWTaskSortTypeTitle:
    case KWTaskSortTypePinnedDate:
        break;
    }
    return 0;
}

std::int64_t SectionPlaces::rankOfDates(const KWTaskListItemModel &row) const
{
    if (!row.startDate) return noDateRank;
    if (isOfTomorrow(m_shown.list)) return 1;
    if (lastDayOf(row, m_shown.zone) < m_shown.today) return overdueRank;
    const auto distance = (m_shown.zone.dayOf(*row.startDate) - m_shown.today).count();
    if (m_shown.isOfEvents()) return std::max<std::int64_t>(distance, 0);
    return std::clamp<std::int64_t>(distance, 0, laterRank);
}

std::int64_t SectionPlaces::rankOfTags(const QStringList &tags) const
{
    std::int64_t rank = m_shown.groups.size();
    for (const QString &each : tags)
        rank = std::min(rank, rankOfGroup(each));
    return rank;
}

// What stands in no column is above them; a board has no such place.
std::int64_t SectionPlaces::rankOfColumn(const QString &columnID) const
{
    return m_ranks.value(columnID, m_options.inKanban ? 0 : firstRank);
}

std::int64_t SectionPlaces::rankOfGroup(const QString &id) const
{
    return m_ranks.value(id, m_shown.groups.size());
}

std::int64_t SectionPlaces::rankOfDay(const std::optional<Instant> &moment) const
{
    return moment ? -m_shown.zone.dayOf(*moment).time_since_epoch().count() : lastRank;
}

KWTaskCategory SectionPlaces::sectionAt(const SectionPlace &place) const
{
    switch (place.zone) {
    case SectionPlace::Zone::Pinned:
        return {KWPinnedCategorySection{}, u"pinned"_s, KWLocalizedString("Pinned")};
    case SectionPlace::Zone::FormerMembers:
        return {KWAssigneeCategorySection{{place.rank}, true}, u"assignee:"_s + QString::number(place.rank),
                KWLocalizedString("Former Member")};
    case SectionPlace::Zone::Notes:
        return {KWNoteCategorySection{}, u"notes"_s, KWLocalizedString("Notes")};
    case SectionPlace::Zone::Events:
        return {KWCalSubscriptionCategorySection{}, u"events"_s, KWLocalizedString("Events")};
    case SectionPlace::Zone::Habits:
        return {KWHabitCategorySection{}, u"habits"_s, KWLocalizedString("Habits")};
    case SectionPlace::Zone::Completed:
        return {KWCompletedCategorySection{}, u"completed"_s, KWLocalizedString("Completed")};
    case SectionPlace::Zone::Usual:
        break;
    }
    return usualSection(place.rank);
}

KWTaskCategory SectionPlaces::usualSection(std::int64_t rank) const
{
    const bool isGroup = rank >= 0 && rank < m_shown.groups.size();
    const ShownList::Group group = isGroup ? m_shown.groups.at(rank) : ShownList::Group{};
    switch (m_sortType) {
    case KWTaskSortTypeDate:
        return dateSection(rank);
    case KWTaskSortTypePriority: {
        const auto priority = KWTaskPriority(-rank);
        return {KWPriorityCategorySection{priority}, u"priority:"_s + QString::number(priority),
                displayName(priority)};
    }
    case KWTaskSortTypeProject:
        return {KWProjectCategorySection{group.id}, u"list:"_s + group.id,
                isGroup ? group.title : KWLocalizedString("No List")};
    case KWTaskSortTypeTag:
        if (!isGroup) return {KWTagCategorySection{}, u"tag:"_s, KWLocalizedString("No Tag")};
        return {KWTagCategorySection{group.id}, u"tag:"_s + group.id, group.title};
    case KWTaskSortTypeAssignee:
        if (rank == firstRank)
            return {KWAssigneeCategorySection{{m_shown.clientID}}, u"assignee:me"_s,
                    KWLocalizedString("Assigned to Me")};
        if (!isGroup) return {KWAssigneeCategorySection{}, u"assignee:"_s, KWLocalizedString("Not Assigned")};
        return {KWAssigneeCategorySection{{group.id.toLongLong()}}, u"assignee:"_s + group.id, group.title};
    case KWTaskSortTypeCustom:
        if (isGroup) return {KWColumnCategorySection{group.id}, u"column:"_s + group.id, group.title};
        break;
    case KWTaskSortTypeCreatedTime:
    case KWTaskSortTypeModifiedTime:
    case KWTaskSortTypeCompletionDate:
        return daySection(rank);
    case KWTaskSortTypeTitle:
    case KWTaskSortTypePinnedDate:
        break;
    }
    return {KWDefaultCategorySection{}, u"default"_s, {}};
}

KWTaskCategory SectionPlaces::dateSection(std::int64_t rank) const
{
    if (m_shown.isOfEvents() && rank > 1) return eventsSection(rank);
    if (rank == overdueRank)
        return {KWDateCategorySection{m_shown.today - days{1}, true, true}, u"date:overdue"_s,
                KWLocalizedString("Overdue")};
    if (rank == noDateRank) return {KWDateCategorySection{}, u"date:none"_s, KWLocalizedString("No Date")};
    const Day day = m_shown.today + days{rank};
    if (rank == laterRank)
        return {KWDateCategorySection{day, true}, u"date:later"_s, KWLocalizedString("Later")};
    if (rank == 0) return {KWDateCategorySection{day}, u"date:today"_s, KWLocalizedString("Today")};
    if (rank == 1) return {KWDateCategorySection{day}, u"date:tomorrow"_s, KWLocalizedString("Tomorrow")};
    return {KWDateCategorySection{day}, u"date:"_s + QString::number(DayStamp::fromDay(day)),
            m_shown.locale.standaloneDayName(dateOf(day).dayOfWeek())};
}

KWTaskCategory SectionPlaces::eventsSection(std::int64_t rank) const
{
    const Day day = m_shown.today + days{rank};
    return {KWDateCategorySection{day}, u"date:"_s + QString::number(DayStamp::fromDay(day)),
            m_shown.locale.toString(dateOf(day), QLocale::LongFormat)};
}

KWTaskCategory SectionPlaces::daySection(std::int64_t rank) const
{
    if (rank == lastRank) return {KWDefaultCategorySection{}, u"day:none"_s, KWLocalizedString("Earlier")};
    const Day day{days{-rank}};
    const auto ago = (m_shown.today - day).count();
    QString title = m_shown.locale.toString(dateOf(day), QLocale::LongFormat);
    if (ago == 0) title = KWLocalizedString("Today");
    if (ago == 1) title = KWLocalizedString("Yesterday");
    return {KWDefaultCategorySection{}, u"day:"_s + QString::number(DayStamp::fromDay(day)), title};
}

QList<SectionPlace> SectionPlaces::standing() const
{
    QList<SectionPlace> places;
    if (!m_options.inKanban || m_sortType != KWTaskSortTypeCustom) return places;
    for (std::int64_t rank = 0; rank < m_shown.groups.size(); ++rank)
        places.append({SectionPlace::Zone::Usual, rank});
    return places;
}
