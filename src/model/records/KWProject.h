#pragma once

#include "model/records/KWProjectModel.h"
#include "model/records/ManagedRecord.h"

/// Which of a user's lists are meant.
enum class ProjectScope { Open, OpenAndClosed };

/// A list in a context.
class KWProject : public ManagedRecord<KWProjectModel> {
public:
    bool isClosed() const { return model().closed; }
    bool isInbox() const { return model().isInbox; }
    bool isNoteKind() const { return model().kind == KWProjectKindNote; }

    /// The user's lists, the inbox first, then in their manual order.
    static QList<KWProject *> findProjectsOfUser(const QString &userID, ProjectScope scope,
                                                 ObjectContext &context);
    /// The user's inbox; none before the account was made.
    static KWProject *findInboxOfUser(const QString &userID, ObjectContext &context);
    /// The id the user's inbox has, also before it is made.
    static QString inboxIDOfUser(const QString &userID);
    /// The open list whose name equals `name` once white space and case are left out; the inbox answers
    /// to its displayed name too. None when there is no such list.
    static KWProject *findProjectNamed(const QString &name, const QString &userID, ObjectContext &context);

    /// A list of that name after the last of the user's lists.
    static KWProject &createProjectNamed(const QString &name, const QString &userID, ObjectContext &context);
    /// The manual position before the list's first task: new tasks stand on top.
    std::int64_t sortOrderForNewTask() const;
};
