#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/filter/CXSmartFilter.h"
#include "corvexkit/time/CXClock.h"
#include "model/records/KWListIdentifier.h"
#include "model/store/TaskPlace.h"

#include <QFlags>
#include <QHash>
#include <QSet>

class Connection;

/// Which counts of a sidebar are meant.
enum class SidebarCountKind : unsigned { SmartLists = 1, Lists = 2, Tags = 4, Filters = 8, Calendars = 16 };
Q_DECLARE_FLAGS(SidebarCountKinds, SidebarCountKind)
Q_DECLARE_OPERATORS_FOR_FLAGS(SidebarCountKinds)
inline constexpr SidebarCountKinds allSidebarCounts{SidebarCountKind::SmartLists | SidebarCountKind::Lists |
                                                    SidebarCountKind::Tags | SidebarCountKind::Filters |
                                                    SidebarCountKind::Calendars};

/// How many open tasks each list of a sidebar has: lists, folders, tags, filters and smart lists; those by
/// date have checklist items, too. Of a subscribed calendar, how many events it has today. Counted once for
/// all of them, then kept true by telling which tasks went where. A value: it may cross threads.
class SidebarCounts {
public:
    /// Counts for the user's sidebar, on the day that the clock shows.
    static Result<SidebarCounts> read(const QString &userID, const CXClock &clock, Connection &connection);

    /// Nothing for a list that shows no number, and for a filter that cannot be read.
    std::optional<int> count(const KWListIdentifier &list) const;

    /// Takes what saved tasks left, and adds where they went. Lists and filters themselves must be as they
    /// were read.
    void apply(const QList<TaskMove> &moves);

    /// Counts the user's checklist items again, without those of the tasks `leftOut`. What cannot be read
    /// stays as it was.
    Result<void> recountChecklistItems(const QString &userID, const QStringList &leftOut,
                                       Connection &connection);

    /// How many habits are open today, which is nothing that a task changes.
    void setOpenHabits(int number) { m_openHabits = number; }
    int openHabits() const { return m_openHabits; }

    /// Takes the counts of these kinds from others; folders are lists.
    void take(const SidebarCounts &others, SidebarCountKinds kinds);

    bool operator==(const SidebarCounts &) const = default;

private:
    struct List {
        QString groupID{};
        bool isOpen = false; ///< and the user's
        bool showsInSmartList = false;
        int tasks = 0;

        bool operator==(const List &) const = default;
    };

    struct Filter {
        CXSmartFilter filter{};
        int tasks = 0;

        bool operator==(const Filter &) const = default;
    };

    void readLists(const QString &userID, Connection &connection);
    void readTags(const QString &userID, Connection &connection);
    void readParentTags(const QString &userID, Connection &connection);
    QSet<QString> tagsCounting(const QStringList &tags) const;
    void readFilters(const QString &userID, const CXClock &clock, Connection &connection);
    void readSmartLists(const QString &userID, Connection &connection);
    Result<void> readCalendars(const QString &userID, const CXClock &clock, Connection &connection);
    void readChecklistItems(const QString &userID, const QStringList &leftOut, Connection &connection);
    void add(const TaskPlace &place, int number);

    QHash<QString, List> m_lists;
    QHash<QString, int> m_groups;
    QHash<QString, int> m_tags;
    QHash<QString, int> m_calendars;      // without those that have none
    QHash<QString, QString> m_parentTags; // of child tags; a parent counts the tasks of its children, too
    QHash<QString, Filter> m_filters;
    CXSmartFilterFrame m_frame;
    Instant m_tomorrow{}; // the midnights that the days begin with
    Instant m_dayAfter{};
    Instant m_weekAfter{};
    // Of the lists by date, each counted by itself.
    struct Dated {
        int today = 0;
        int tomorrow = 0;
        int next7Days = 0;

        bool operator==(const Dated &) const = default;
    };

    int m_all = 0;
    Dated m_datedTasks;
    Dated m_datedItems;
    int m_assignedTasks = 0;
    int m_openHabits = 0;
};
