#pragma once

#include "model/records/KWCalendarDisplayConfigurationModel.h"

#include <QHash>
#include <QList>

class ObjectContext;

/// Something that the calendar shows or leaves out.
struct CalendarChoice {
    enum class Kind { Completed, ChecklistItems, Repeats, Focus, Folder, List, Calendar };
    enum class Shown { All, Some, None }; ///< only of a folder some of it

    Kind kind = Kind::List;
    QString id{}; ///< of the folder, list or calendar
    QString title{};
    QString color{}; ///< "#rrggbb" of the list or calendar; empty for none
    bool isInFolder = false;
    Shown shown = Shown::All;

    bool operator==(const CalendarChoice &) const = default;
};

/// All that can be left out of the calendar, and what it shows now: kinds of things, then the open lists that
/// smart lists show, each folder before its lists, then the subscribed calendars. A plain value.
class CalendarChoices {
public:
    static CalendarChoices read(const QString &userID, ObjectContext &context);

    QList<CalendarChoice> all() const { return m_choices; }
    /// Whether anything of it is left out. Hidden lists that are gone or archived do not count, nor
    /// does what comes hidden: focus sessions.
    bool hideSomething() const;

    /// The configuration with that one shown or not; a folder stands for its lists.
    KWCalendarDisplayConfigurationModel with(const CalendarChoice &choice, bool isShown) const;
    /// With all that hideSomething() counts.
    KWCalendarDisplayConfigurationModel withAllShown() const;

private:
    void add(const CalendarChoice &choice) { m_choices.append(choice); }
    void addKinds();
    void addLists(const QString &userID, ObjectContext &context);
    void addCalendars(const QString &userID, ObjectContext &context);

    KWCalendarDisplayConfigurationModel m_configuration;
    QList<CalendarChoice> m_choices;
    QHash<QString, QStringList> m_listsOfFolders;
};
