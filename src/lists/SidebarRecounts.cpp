#include "lists/SidebarRecounts.h"

#include "model/events/NotificationNames.h"

#include <algorithm>
#include <array>
#include <set>

namespace {

using Type = KWProjectListNodeType;
using Types = std::set<Type>;

const Types everyKind{Type::smartProject, Type::project,      Type::group,          Type::tag,
                      Type::filter,       Type::calsub_local, Type::calsub_account, Type::calsub_caldav,
                      Type::calsub_url};
const Types calendars{Type::calsub_local, Type::calsub_account, Type::calsub_caldav, Type::calsub_url};
const Types withTasks{Type::smartProject, Type::project, Type::group, Type::tag, Type::filter};

Types with(Types types, const Types &more)
{
    types.insert(more.begin(), more.end());
    return types;
}

// The kinds of nodes that count again on a notification.
struct Recount {
    QString notification;
    Types types;
};

const Recount newDayComes{KWNewDayComesNotification, {Type::smartProject, Type::tag, Type::filter}};
const Recount didPullHabits{KWSyncDidPullHabitsNotification, {Type::smartProject}};
const Recount newHabitDayComes{KWNewHabitDayComesNotification, {Type::smartProject}};
const Recount userSettingsDidChange{KWUserSettingsDidChangeNotification, {Type::smartProject, Type::filter}};
const Recount calSubDidPullEvents{KWCalSubDidPullEventsNotification,
                                  with(calendars, {Type::smartProject, Type::filter})};
const Recount repeatInstanceGenerated{KWKWRepeatInstanceGeneratedNotification, everyKind};
const Recount singleProjectSyncFinished{KWSingleProjectSyncFinishedNotification, withTasks};
// Which rows are shown is another now, not which are open.
const Recount listDisplayDidChange{KWListDisplayConfigurationDidChangeNotification, {}};
const Recount habitSettingsDidChange{KWHabitSettingsChangedNotification, {Type::smartProject}};
const Recount calSubDisplayStatusChanged{KWCalSubDisplayStatusDidChangeNotification,
                                         with(calendars, {Type::smartProject})};
const Recount dataDidChangeOutside{KWDataDidChangeOutsideMainAppNotification, everyKind};

const std::array<const Recount *, 11> recounts{&newDayComes,
                                               &newHabitDayComes,
                                               &didPullHabits,
                                               &userSettingsDidChange,
                                               &calSubDidPullEvents,
                                               &repeatInstanceGenerated,
                                               &singleProjectSyncFinished,
                                               &listDisplayDidChange,
                                               &habitSettingsDidChange,
                                               &calSubDisplayStatusChanged,
                                               &dataDidChangeOutside};

SidebarCountKinds countsOf(Type type)
{
    switch (type) {
    case Type::smartProject:
        return SidebarCountKind::SmartLists;
    case Type::project:
    case Type::group:
        return SidebarCountKind::Lists;
    case Type::tag:
        return SidebarCountKind::Tags;
    case Type::filter:
        return SidebarCountKind::Filters;
    case Type::calsub_local:
    case Type::calsub_account:
    case Type::calsub_caldav:
    case Type::calsub_url:
        return SidebarCountKind::Calendars;
    default:
        return {};
    }
}

} // namespace

QStringList recountNotifications()
{
    QStringList names;
    for (const Recount *each : recounts)
        names.append(each->notification);
    return names;
}

bool recountsOn(const QString &notification, KWProjectListNodeType type)
{
    const auto found = std::ranges::find(recounts, notification, &Recount::notification);
    return found != recounts.end() && (*found)->types.contains(type);
}

SidebarCountKinds countsToRenewOn(const QString &notification)
{
    SidebarCountKinds kinds;
    for (const Type each : everyKind)
        if (recountsOn(notification, each)) kinds |= countsOf(each);
    // Both go by the day.
    if (kinds & SidebarCountKind::SmartLists) kinds |= SidebarCountKind::Calendars;
    return kinds;
}
