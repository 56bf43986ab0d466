#pragma once

#include "model/records/KWProjectModel.h"
#include "model/records/ManagedRecord.h"

class KWColumn;
class KWTask;

/// Where a new task stands in the manual order.
enum class ListEnd { Top, Bottom };

/// Which of a user's lists are meant.
enum class ProjectScope { Open, Closed, OpenAndClosed };

/// A list in a context.
class KWProject : public ManagedRecord<KWProjectModel> {
public:
    bool isClosed() const { return model().closed; }
    bool isInbox() const { return model().isInbox; }
    /// Not only shared with the user by somebody else.
    bool belongsToMe() const { return model().isOwner; }
    bool isNoteKind() const { return model().kind == KWProjectKindNote; }
    /// Its tasks may be changed.
    bool isWritable() const { return model().permission == KWProjectPermissionWrite; }

    /// The user's lists that are not deleted: the inbox first, then in their manual order.
    static QList<KWProject *> findProjectsOfUser(const QString &userID, ProjectScope scope,
                                                 ObjectContext &context);
    static QList<KWProject *> orderedOpenProjects(const QString &userID, ObjectContext &context);
    static QList<KWProject *> findClosedProjectsOfUser(const QString &userID, ObjectContext &context);
    /// The inbox counts.
    static int countOfProjectsOfUser(const QString &userID, ProjectScope scope, ObjectContext &context);
    /// Of the open ones.
    static int countOfSharedProjectsOfUser(const QString &userID, ObjectContext &context);
    /// The user's inbox; none before the account was made.
    static KWProject *findInboxOfUser(const QString &userID, ObjectContext &context);
    /// The id the user's inbox has, also before it is made.
    static QString inboxIDOfUser(const QString &userID);
    /// The open list whose name equals `name` once white space and case are left out; the inbox answers
    /// to its displayed name too. None when there is no such list.
    static KWProject *findProjectNamed(const QString &name, const QString &userID, ObjectContext &context);

    /// Both stand in one order in the sidebar.
    static std::int64_t sortOrderBehindListsAndFolders(const QString &userID, ObjectContext &context);

    /// A list of that name after the last of the user's lists and folders.
    static KWProject &createProjectNamed(const QString &name, const QString &userID, ObjectContext &context);
    /// The manual position before the list's first task, or behind its last one.
    std::int64_t sortOrderForNewTask(ListEnd end = ListEnd::Top) const;

    /// The columns of the list's board in their manual order.
    QList<KWColumn *> orderedColumns() const;
    /// The open tasks in their manual order.
    QList<KWTask *> orderedTasks() const;
    /// Of the tasks that are neither deleted nor in the trash. Abandoned ones are in neither number.
    int numberOfCompletedTasks() const;
    int numberOfUncompletedTasks() const;
    /// The icon of its kind: "inbox", "archive" for a closed list, "shared", "note" or "list".
    QString iconName() const;
};
