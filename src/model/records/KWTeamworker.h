#pragma once

#include "model/records/KWTeamworkerModel.h"
#include "model/records/ManagedRecord.h"

#include <QLocale>

/// A member of a shared list in a context.
class KWTeamworker : public ManagedRecord<KWTeamworkerModel> {
public:
    /// By their names as the language orders them, numbers in them by value; those of one name by id.
    static QList<KWTeamworker *> sortedByName(QList<KWTeamworker *> members, const QLocale &locale = {});
};
