#include "model/records/KWProject.h"

#include "model/records/KWSmartProject.h"
#include "model/records/SortOrder.h"
#include "model/store/FoldedName.h"

using namespace Qt::StringLiterals;

QList<KWProject *> KWProject::findProjectsOfUser(const QString &userID, ProjectScope scope,
                                                 ObjectContext &context)
{
    return context.fetch<KWProject>({.where = "userID = ? AND isDeleted = 0 AND closed <= ?",
                                     .values = {userID, std::int64_t(scope == ProjectScope::OpenAndClosed)},
                                     .orderBy = "isInbox DESC, sortOrder, sid"});
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

KWProject &KWProject::createProjectNamed(const QString &name, const QString &userID, ObjectContext &context)
{
    KWProjectModel model;
    model.userID = userID;
    model.name = name;
    model.sortOrder = sortOrderBehindAll<KWProject>(userID, context);
    return context.insert<KWProject>(std::move(model));
}

std::int64_t KWProject::sortOrderForNewTask() const
{
    return context().number("SELECT min(sortOrder) FROM tasks WHERE projectID = ?", {sid()}) -
           KWSortOrderStep;
}
