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

struct Recount {
    QString notification;
    Types types;
};

const auto &recounts()
{
    static const std::array<Recount, 10> table{{
        {KWNewDayComesNotification, {Type::smartProject, Type::tag, Type::filter}},
        {KWSyncDidPullHabitsNotification, {Type::smartProject}},
        {KWUserSettingsDidChangeNotification, {Type::smartProject, Type::filter}},
        {KWCalSubDidPullEventsNotification, with(calendars, {Type::smartProject, Type::filter})},
        {KWKWRepeatInstanceGeneratedNotification, everyKind},
        {KWSingleProjectSyncFinishedNotification, withTasks},
        {KWListDisplayConfigurationDidChangeNotification, {}}, // which rows are shown, not which are open
        {KWHabitSettingsChangedNotification, {Type::smartProject}},
        {KWCalSubDisplayStatusDidChangeNotification, with(calendars, {Type::smartProject})},
        {KWDataDidChangeOutsideMainAppNotification, everyKind},
    }};
    return table;
}

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
    default:
        return {};
    }
}

} // namespace

QStringList recountNotifications()
{
    QStringList names;
    for (const Recount &each : recounts())
        names.append(each.notification);
    return names;
}

bool recountsOn(const QString &notification, KWProjectListNodeType type)
{
    const auto found = std::ranges::find(recounts(), notification, &Recount::notification);
    return found != recounts().end() && found->types.contains(type);
}

SidebarCountKinds countsToRenewOn(const QString &notification)
{
    SidebarCountKinds kinds;
    for (const Type each : everyKind)
        if (recountsOn(notification, each)) kinds |= countsOf(each);
    return kinds;
}
