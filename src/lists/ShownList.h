#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/CXTimeZone.h"
#include "lists/KWTaskSortTypeMenu.h"
#include "lists/ManualPositions.h"
#include "model/records/KWListIdentifier.h"

#include <QLocale>

class ObjectContext;

/// How a list is shown: by what it is sorted, what its sections are called and in which order they stand.
/// A value: it may cross threads.
struct ShownList {
    struct Group {
        QString id;
        QString title;
        bool operator==(const Group &) const = default;
    };

    KWListIdentifier list{};
    QStringList projectIDs{};  ///< of the list itself, of those in a folder; none for what gathers from all
    KWTaskSortTypeMenu menu{}; ///< what it can be sorted by; `selectedType` is in force
    bool isSortable = false;   ///< the menu is offered: not for Completed, Abandoned, the trash and calendars
    bool showsCompleted = false;                    ///< completed and abandoned tasks, too
    bool showsEvents = true;                        ///< of subscribed calendars, where mayShowEvents()
    QStringList hiddenCalendars{};                  ///< ids of those whose events are left out
    std::int64_t clientID = KWTaskAssignedToNobody; ///< the server id of the user
    /// What the sort type groups by, in the order of the sidebar or board: lists, tags, columns, members.
    QList<Group> groups{};
    ManualPositions positions{};
    Day today{};
    CXTimeZone zone{};
    QLocale locale{};

    KWTaskSortType sortType() const { return menu.selectedType; }
    /// The events of one subscribed calendar, and nothing else.
    bool isOfEvents() const { return list.type == KWListIdentifierType::Calendar; }
    /// Events stand among the tasks: of Today, Tomorrow and Next 7 Days.
    bool mayShowEvents() const;
    /// Tasks that are open stand above those that are not.
    bool partsClosedTasks() const { return isSortable; }
    /// Completed, Abandoned and the trash: in an order of their own.
    static bool isOfClosedTasks(const KWListIdentifier &list);
    /// Of its sort-order records, see SortOrderContext.
    QString positionContext() const;

    /// As the account shows the list today.
    static Result<ShownList> read(const KWListIdentifier &list, const QString &userID,
                                  ObjectContext &context);

    /// The manual positions alone, again.
    Result<void> readPositions(Connection &connection);

    bool operator==(const ShownList &) const = default;
};
