#include "model/records/KWTag.h"

QList<KWTag *> KWTag::findTagsOfUser(const QString &userID, ObjectContext &context)
{
    return context.fetch<KWTag>(
        {.where = "userID = ? AND isDeleted = 0", .values = {userID}, .orderBy = "sortOrder, name"});
}

KWTag *KWTag::findTagNamed(const QString &name, const QString &userID, ObjectContext &context)
{
    const QList<KWTag *> found = context.fetch<KWTag>({.where = "userID = ? AND name = ? AND isDeleted = 0",
                                                       .values = {userID, nameForLabel(name)},
                                                       .limit = 1});
    return found.value(0);
}

KWTag *KWTag::createNewTagWithName(const QString &name, const QString &userID, TagUniqueness uniqueness,
                                   ObjectContext &context)
{
    if (KWTag *existing = findTagNamed(name, userID, context))
        return uniqueness == TagUniqueness::MayExist ? existing : nullptr;
    KWTagModel model;
    model.userID = userID;
    model.name = nameForLabel(name);
    model.label = name;
    model.sortOrder =
        context.number("SELECT max(sortOrder) FROM tags WHERE userID = ?", {userID}) + KWSortOrderStep;
    return &context.insert<KWTag>(std::move(model));
}
