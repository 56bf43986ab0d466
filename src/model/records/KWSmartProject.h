#pragma once

#include "model/records/KWConstants.h"

#include <QHash>
#include <QString>

#include <span>

class ObjectContext;

/// A built-in list. There is one instance per kind; `all()` to `summary()` stand in this order in the
/// smart-list settings, followed by the visibility entries of the Tags and Filters sections.
class KWSmartProject {
public:
    static const KWSmartProject &all();
    static const KWSmartProject &today();
    static const KWSmartProject &tomorrow();
    static const KWSmartProject &next7days();
    static const KWSmartProject &assignedToMe();
    static const KWSmartProject &completed();
    static const KWSmartProject &abandoned();
    static const KWSmartProject &trash();
    static const KWSmartProject &summary();
    static const KWSmartProject &tag();
    static const KWSmartProject &filter();
    /// The inbox is a real list that is treated as special.
    static const KWSmartProject &inbox();
    /// Headers of sidebar sections.
    static const KWSmartProject &project();
    static const KWSmartProject &subcal();
    /// Days with all that has a date: no list of tasks, and always in the sidebar.
    static const KWSmartProject &calendar();
    /// The habits: no list of tasks either; it has a visibility setting of its own.
    static const KWSmartProject &habit();
    /// The page of focus: no list of tasks, and in the sidebar unless focus is switched off.
    static const KWSmartProject &focus();

    /// Every instance that has a visibility setting, in the order of the settings.
    static std::span<const KWSmartProject *const> configurable();
    /// The instance with that identifier, or none.
    static const KWSmartProject *withIdentifier(const QString &identifier);

    static bool isSmartProjectID(const QString &identifier) { return withIdentifier(identifier) != nullptr; }
    static bool isCompletedSmartProjectID(const QString &identifier);
    /// Whether the content of the list depends on the current date.
    static bool isDateSensetiveSmartProjectID(const QString &identifier);

    /// How the account sorts the list; as the list comes when nothing was chosen. AccountSettings changes
    /// this and the visibility in a save of its own, and announces it.
    static KWTaskSortType sortTypeWithSmartProjectID(const QString &identifier, const QString &userID,
                                                     ObjectContext &context);
    static void updateSortType(KWTaskSortType sortType, const QString &ofSmartProject, const QString &userID,
                               ObjectContext &context);
    static void updateVisibility(KWSmartProjectVisibility visibility, const QString &ofSmartProject,
                                 const QString &userID, ObjectContext &context);

    const QString &identifier() const { return m_identifier; }
    QString displayName() const;

    bool isAll() const { return this == &all(); }
    bool isToday() const { return this == &today(); }
    bool isTomorrow() const { return this == &tomorrow(); }
    bool isNext7Days() const { return this == &next7days(); }
    bool isAssigneedToMe() const { return this == &assignedToMe(); }
    bool isCompleted() const { return this == &completed(); }
    bool isAbandoned() const { return this == &abandoned(); }
    bool isTrash() const { return this == &trash(); }
    bool isSummary() const { return this == &summary(); }
    bool isInbox() const { return this == &inbox(); }
    /// Whether its rows are tasks, unlike the summary and the headers of sections.
    bool isListOfTasks() const;
    /// Whether it can be shown: the lists of tasks, the calendar, habits, focus and the summary.
    bool hasPage() const
    {
        return isListOfTasks() || this == &calendar() || this == &habit() || this == &focus() || isSummary();
    }
    /// Whether the sidebar shows it as long as nobody has chosen.
    KWSmartProjectVisibility defaultVisibility() const;
    /// Whether the user wants it in the sidebar.
    KWSmartProjectVisibility visibilityOfUser(const QString &userID, ObjectContext &context) const;
    /// The same for every one that has a setting, by identifier.
    static QHash<QString, KWSmartProjectVisibility> visibilities(const QString &userID,
                                                                 ObjectContext &context);

    KWSmartProject(const KWSmartProject &) = delete;
    KWSmartProject &operator=(const KWSmartProject &) = delete;

private:
    KWSmartProject(QString identifier, const char *nameKey);

    QString m_identifier;
    const char *m_nameKey;
};
