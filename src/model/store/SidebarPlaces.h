#pragma once

#include <QList>
#include <QString>

#include <functional>

class ObjectContext;

/// Where one list, folder, tag, filter or calendar stands among those beside it.
struct SidebarPlace {
    QString id; ///< of a tag its name
    std::int64_t order = 0;
    std::function<void(std::int64_t)> setOrder;
};

/// The records of a user that stand beside each other in the sidebar, in their order there.
using SidebarPlaces = QList<SidebarPlace>;

/// The folders, and the lists in none.
SidebarPlaces placesAtTopLevel(const QString &userID, ObjectContext &context);
SidebarPlaces placesInFolder(const QString &groupID, const QString &userID, ObjectContext &context);
SidebarPlaces placesInTeam(const QString &teamID, const QString &userID, ObjectContext &context);
/// The tags below `parent`; those below none for an empty one.
SidebarPlaces placesOfTags(const QString &parent, const QString &userID, ObjectContext &context);
SidebarPlaces placesOfFilters(const QString &userID, ObjectContext &context);
SidebarPlaces placesOfCalendars(const QString &userID, ObjectContext &context);

/// Puts the records `moving` before the one of that id among the others, behind the last when there is no
/// such. They take positions between their neighbours; when there is no room, all are numbered anew.
void placeBefore(const QString &id, const SidebarPlaces &moving, const SidebarPlaces &others);
