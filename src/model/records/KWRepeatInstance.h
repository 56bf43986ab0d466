#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWRepeatInstanceModel.h"
#include "model/records/ManagedRecord.h"

#include <vector>

/// A generated occurrence in a context. There are many of them: they are read and written in bulk, past their
/// records, as part of the next save of the context.
class KWRepeatInstance : public ManagedRecord<KWRepeatInstanceModel> {
public:
    /// When one begins, without its record.
    struct Start {
        QString referenceID;
        Instant startDate;
        bool isDeleted;
    };
    /// Those of these sources that begin in [betweenStartDate, andEndDate], in the order of the sources' ids
    /// and their dates.
    static Result<std::vector<Start>> instancesOfUser(const QString &userID, const QStringList &referenceTo,
                                                      Instant betweenStartDate, Instant andEndDate,
                                                      ObjectContext &context);

    /// What is not the same for all that are made at once.
    struct Made {
        QString referenceID;
        KWRepeatInstanceType instanceType;
        Instant startDate;
        Instant endDate;
    };
    static Result<void> insertAll(const std::vector<Made> &made, const QString &of, ObjectContext &in);
    /// All of these sources, for good.
    static Result<void> deleteAllWithRefreenceIDs(const QStringList &ids, const QString &of,
                                                  ObjectContext &in);
};
