#pragma once

#include "focus/FocusPageContent.h"

#include <QHash>

class ObjectContext;
struct FocusRow;
struct KWProjectModel;
struct KWTagModel;

/// Names and colours of what focus was spent on.
class FocusNames {
public:
    /// Those of the user's lists and tags as they are now.
    FocusNames(const QString &userID, ObjectContext &context);

    FocusSubject subjectOf(const FocusRow &row) const;
    FocusShare listOf(const FocusRow &row) const;
    /// One for each tag; never empty.
    QList<FocusShare> tagsOf(const FocusRow &row) const;

private:
    QString labelOf(const QString &tag) const;

    QHash<QString, FocusShare> m_lists; // by name
    QHash<QString, FocusShare> m_tags;  // by name
};
