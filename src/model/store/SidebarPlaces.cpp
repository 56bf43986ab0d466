#include "model/store/SidebarPlaces.h"

#include "model/records/KWCalSubscription.h"
#include "model/records/KWFilter.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWTag.h"

#include <algorithm>

namespace {

template <class Record>
SidebarPlace placeOf(Record &record)
{
    return {record.sid(), record.model().sortOrder,
            [&record](std::int64_t order) { record.set(&KWSynchronizableFields::sortOrder, order); }};
}

SidebarPlace placeOf(KWTag &tag)
{
    SidebarPlace place = placeOf<KWTag>(tag);
    place.id = tag->name;
    return place;
}

template <class Record, class Belongs>
SidebarPlaces placesOf(const QList<Record *> &records, const Belongs &belongs)
{
    SidebarPlaces places;
    for (Record *each : records)
        if (belongs(each->model())) places.append(placeOf(*each));
    return places;
}

template <class Belongs>
SidebarPlaces placesOfLists(const QString &userID, ObjectContext &context, const Belongs &belongs)
{
    return placesOf(KWProject::orderedOpenProjects(userID, context),
                    [&belongs](const KWProjectModel &each) { return !each.isInbox && belongs(each); });
}

bool areInOrder(const SidebarPlaces &places)
{
    return std::ranges::adjacent_find(places, std::ranges::greater_equal{}, &SidebarPlace::order) ==
           places.end();
}

// `count` positions in even steps between two neighbours; fewer than wanted where there is no room.
QList<std::int64_t> between(const SidebarPlace *before, const SidebarPlace *after, qsizetype count)
{
    QList<std::int64_t> orders;
    std::int64_t step = KWSortOrderStep;
    if (before && after) step = (after->order - before->order) / (count + 1);
    if (step <= 0) return {};
    const std::int64_t first = before ? before->order + step : after ? after->order - count * step : step;
    for (qsizetype i = 0; i < count; ++i)
        orders.append(first + i * step);
    if (orders.first() < KWSortOrderMin || orders.last() > KWSortOrderMax) return {};
    return orders;
}

} // namespace

SidebarPlaces placesAtTopLevel(const QString &userID, ObjectContext &context)
{
    const QList<KWProjectGroup *> folders = KWProjectGroup::findGroupsOfUser(userID, context);
    SidebarPlaces places = placesOf(folders, [](const KWProjectGroupModel &) { return true; });
    places += placesOfLists(userID, context, [&folders](const KWProjectModel &list) {
        const auto isItsFolder = [&list](const KWProjectGroup *each) { return each->sid() == list.groupID; };
        return list.teamID.isEmpty() && std::ranges::none_of(folders, isItsFolder);
    });
    std::ranges::stable_sort(places, {}, &SidebarPlace::order);
    return places;
}

SidebarPlaces placesInFolder(const QString &groupID, const QString &userID, ObjectContext &context)
{
    return placesOfLists(userID, context, [&groupID](const KWProjectModel &each) {
        return each.groupID == groupID && each.teamID.isEmpty();
    });
}

SidebarPlaces placesInTeam(const QString &teamID, const QString &userID, ObjectContext &context)
{
    return placesOfLists(userID, context,
                         [&teamID](const KWProjectModel &each) { return each.teamID == teamID; });
}

SidebarPlaces placesOfTags(const QString &parent, const QString &userID, ObjectContext &context)
{
    return placesOf(KWTag::findTagsOfUser(userID, context),
                    [&parent](const KWTagModel &each) { return each.parent == parent; });
}

SidebarPlaces placesOfFilters(const QString &userID, ObjectContext &context)
{
    return placesOf(KWFilter::findFiltersOfUser(userID, context), [](const KWFilterModel &) { return true; });
}

SidebarPlaces placesOfCalendars(const QString &userID, ObjectContext &context)
{
    return placesOf(KWCalSubscription::findSubscriptionsOfUser(userID, context),
                    [](const KWCalSubscriptionModel &) { return true; });
}

void placeBefore(const QString &id, const SidebarPlaces &moving, const SidebarPlaces &others)
{
    if (moving.isEmpty()) return;
    SidebarPlaces places = others;
    places.removeIf([&moving](const SidebarPlace &each) {
        return std::ranges::find(moving, each.id, &SidebarPlace::id) != moving.end();
    });
    const bool wereInOrder = areInOrder(places);
    const auto next = std::ranges::find(places, id, &SidebarPlace::id);
    const qsizetype index = next - places.begin();
    const SidebarPlace *before = index > 0 ? &places.at(index - 1) : nullptr;
    const SidebarPlace *after = index < places.size() ? &places.at(index) : nullptr;
    const QList<std::int64_t> orders = between(before, after, moving.size());

    for (qsizetype i = 0; i < moving.size(); ++i)
        places.insert(index + i, moving.at(i));
    if (wereInOrder && !orders.isEmpty())
        for (qsizetype i = 0; i < orders.size(); ++i)
            moving.at(i).setOrder(orders.at(i));
    else
        for (qsizetype i = 0; i < places.size(); ++i)
            places.at(i).setOrder((i + 1) * KWSortOrderStep);
}
