#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWRepeatInstanceFetchFlagModel.h"
#include "model/records/ManagedRecord.h"

#include <vector>

/// What was generated of a repeating task or event, in a context. Read and written in bulk, as
/// KWRepeatInstance is.
class KWRepeatInstanceFetchFlag : public ManagedRecord<KWRepeatInstanceFetchFlagModel> {
public:
    /// What one says, without its record.
    struct Range {
        QString referenceID;
        Instant fetchBeginDate;
        Instant fetchEndDate;
        std::int64_t hashTag;
    };
    static Result<std::vector<Range>> allFetchFlagsOfUser(const QString &userID, ObjectContext &context);
    static Result<void> insertAll(const std::vector<Range> &made, const QString &of, ObjectContext &in);
    /// Their ranges are other ones now.
    static Result<void> updateAll(const std::vector<Range> &widened, const QString &of, ObjectContext &in);
    static Result<void> deleteAllWithRefreenceIDs(const QStringList &ids, const QString &of,
                                                  ObjectContext &in);
};
