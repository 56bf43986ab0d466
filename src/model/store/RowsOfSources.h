#pragma once

#include "model/store/ObjectContext.h"

#include <QStringList>

/// Deletes, with the next save of the context, the rows that belong to these sources by their column
/// `referenceID`. `from` names the table with the index to use.
Result<void> deleteRowsOfSources(const char *from, const QStringList &ids, const QString &userID,
                                 ObjectContext &context);
