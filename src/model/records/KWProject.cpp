#include "model/records/KWProject.h"

#include "model/records/KWColumn.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/records/SortOrder.h"
#include "model/store/FoldedName.h"

using namespace Qt::StringLiterals;

namespace {

const char *conditionOf(ProjectScope scope)
{
    switch (scope) {
    case ProjectScope::Open:
        return "userID = ? AND isDeleted = 0 AND closed = 0";
    case ProjectScope::Closed:
        return "userID = ? AND isDeleted = 0 AND closed = 1";
    case ProjectScope::OpenAndClosed:
        break;
    }
    return "userID = ? AND isDeleted = 0";
}

} // namespace

QList<KWProject *> KWProject::findProjectsOfUser(const QString &userID, ProjectScope scope,
                                                 ObjectContext &context)
{
    return context.fetch<KWProject>(
        {.where = conditionOf(scope), .values = {userID}, .orderBy = "isInbox DESC, sortOrder, sid"});
}

QList<KWProject *> KWProject::orderedOpenProjects(const QString &userID, ObjectContext &context)
{
    return findProjectsOfUser(userID, ProjectScope::Open, context);
}

QList<KWProject *> KWProject::findClosedProjectsOfUser(const QString &userID, ObjectContext &context)
{
    return findProjectsOfUser(userID, ProjectScope::Closed, context);
}

int KWProject::countOfProjectsOfUser(const QString &userID, ProjectScope scope, ObjectContext &context)
{
    const std::string sql = std::string{"SELECT count(*) FROM projects WHERE "} + conditionOf(scope);
    return int(context.number(sql.c_str(), {userID}));
}

int KWProject::countOfSharedProjectsOfUser(const QString &userID, ObjectContext &context)
{
    const std::string sql = std::string{"SELECT count(*) FROM projects WHERE isShared = 1 AND "} +
                            conditionOf(ProjectScope::Open);
    return int(context.number(sql.c_str(), {userID}));
}

QString KWProject::inboxIDOfUser(const QString &userID) { return u"inbox"_s + userID; }

KWProject *KWProject::findInboxOfUser(const QString &userID, ObjectContext &context)
{
    return context.find<KWProject>(inboxIDOfUser(userID));
}

KWProject *KWProject::findProjectNamed(const QString &name, const QString &userID, ObjectContext &context)
{
    const QString wanted = foldedName(name);
    for (KWProject *each : findProjectsOfUser(userID, ProjectScope::Open, context)) {
        if (foldedName((*each)->name) == wanted) return each;
        if (each->isInbox() && foldedName(KWSmartProject::inbox().displayName()) == wanted) return each;
    }
    return nullptr;
}

std::int64_t KWProject::sortOrderBehindListsAndFolders(const QString &userID, ObjectContext &context)
{
    return std::max(sortOrderBehindAll<KWProjectGroup>(userID, context),
                    sortOrderBehindAll<KWProject>(userID, context));
}

KWProject &KWProject::createProjectNamed(const QString &name, const QString &userID, ObjectContext &context)
{
    KWProjectModel model;
    model.userID = userID;
    model.name = name;
    model.sortOrder = sortOrderBehindListsAndFolders(userID, context);
    return context.insert<KWProject>(std::move(model));
}

std::int64_t KWProject::sortOrderForNewTask(ListEnd end) const
{
    if (end == ListEnd::Bottom)
        return sortOrderAfter(
            context().number("SELECT max(sortOrder) FROM tasks WHERE projectID = ?", {sid()}));
    return sortOrderBefore(context().number("SELECT min(sortOrder) FROM tasks WHERE projectID = ?", {sid()}));
}

QList<KWColumn *> KWProject::orderedColumns() const
{
    return context().fetch<KWColumn>(
        {.where = "projectID = ? AND isDeleted = 0", .values = {sid()}, .orderBy = "sortOrder, id"});
}

QList<KWTask *> KWProject::orderedTasks() const
{
    return context().fetch<KWTask>(
        {.where = "projectID = ? AND status = 0 AND isDeleted = 0 AND isTrashed = 0",
         .values = {sid()},
         .orderBy = "sortOrder, id",
         .index = "openTasksByList"});
}

int KWProject::numberOfCompletedTasks() const
{
    return int(context().number("SELECT count(*) FROM tasks WHERE projectID = ? AND status = 2 AND "
                                "isDeleted = 0 AND isTrashed = 0",
                                {sid()}));
}

int KWProject::numberOfUncompletedTasks() const
{
    return int(context().number("SELECT count(*) FROM tasks INDEXED BY openTasksByList WHERE projectID = ? "
                                "AND status = 0 AND isDeleted = 0 AND isTrashed = 0",
                                {sid()}));
}

QString KWProject::iconName() const
{
    if (isInbox()) return u"inbox"_s;
    if (isClosed()) return u"archive"_s;
    if (model().isShared) return u"shared"_s;
    return isNoteKind() ? u"note"_s : u"list"_s;
}
