#pragma once

#include "model/records/KWTagModel.h"
#include "model/records/ManagedRecord.h"

/// Whether making a tag may answer one that exists already.
enum class TagUniqueness { MayExist, MustBeNew };

/// A tag in a context.
class KWTag : public ManagedRecord<KWTagModel> {
public:
    /// The user's tags in their manual order.
    static QList<KWTag *> findTagsOfUser(const QString &userID, ObjectContext &context);
    static KWTag *findTagNamed(const QString &name, const QString &userID, ObjectContext &context);

    /// A tag labelled `name`, which the caller has checked. When the user has a tag of that name: none
    /// if it must be new, else that tag.
    static KWTag *createNewTagWithName(const QString &name, const QString &userID, TagUniqueness uniqueness,
                                       ObjectContext &context);

    /// The key of a label: in lower case, by Unicode's rules and no language's.
    static QString nameForLabel(const QString &label) { return label.toLower(); }
};
