#include "model/records/KWTag.h"

#include "model/records/SortOrder.h"

QList<KWTag *> KWTag::findTagsOfUser(const QString &userID, ObjectContext &context)
{
    return context.fetch<KWTag>(
        {.where = "userID = ? AND isDeleted = 0", .values = {userID}, .orderBy = "sortOrder, name"});
}

KWTag *KWTag::findTagNamed(const QString &name, const QString &userID, ObjectContext &context)
{
    const QString key = nameForLabel(name);
    const auto isMeant = [&](const KWTag *each) {
        return (*each)->userID == userID && (*each)->name == key && each->isNotDeleted();
    };
    QList<KWTag *> candidates =
        context.fetch<KWTag>({.where = "userID = ? AND name = ? AND isDeleted = 0", .values = {userID, key}});
    candidates += context.inserted<KWTag>();
    const auto found = std::ranges::find_if(candidates, isMeant);
    return found == candidates.end() ? nullptr : *found;
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
    model.sortOrder = sortOrderBehindAll<KWTag>(userID, context);
    return &context.insert<KWTag>(std::move(model));
}
