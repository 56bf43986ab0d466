#include "model/records/KWRepeatInstanceFetchFlag.h"

#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/RowsOfSources.h"
#include "model/store/StoreFailure.h"

Result<std::vector<KWRepeatInstanceFetchFlag::Range>>
KWRepeatInstanceFetchFlag::allFetchFlagsOfUser(const QString &userID, ObjectContext &context)
{
    try {
        auto statement = context.connection().prepare(
            "SELECT referenceID, fetchBeginDate, fetchEndDate, hashTag FROM repeatInstanceFetchFlags "
            "NOT INDEXED WHERE userID = ? AND isDeleted = 0 ORDER BY id"); // nearly all rows are this user's
        statement.bind({userID});
        std::vector<Range> found;
        while (statement->executeStep()) {
            Range &flag = found.emplace_back();
            columns::read(statement->getColumn(0), flag.referenceID);
            columns::read(statement->getColumn(1), flag.fetchBeginDate);
            columns::read(statement->getColumn(2), flag.fetchEndDate);
            columns::read(statement->getColumn(3), flag.hashTag);
        }
        return found;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<void> KWRepeatInstanceFetchFlag::insertAll(const std::vector<Range> &made, const QString &of,
                                                  ObjectContext &in)
{
    if (made.empty()) return {};
    try {
        auto statement = in.bulkWriting().prepare(
            "INSERT INTO repeatInstanceFetchFlags (sid, referenceID, fetchBeginDate, fetchEndDate, hashTag, "
            "userID, etag, sortOrder, createdTime, modifiedTime, syncStatus, pendingChanges, isDeleted) "
            "VALUES (?, ?, ?, ?, ?, ?, '', 0, ?, ?, ?, 0, 0)");
        const Instant now = in.clock().now();
        RecordIdentifiers identifiers{now};
        for (const Range &each : made) {
            int column = 1;
            const auto bind = [&](const auto &...values) {
                (columns::bind(*statement, column++, values), ...);
            };
            bind(identifiers.next(), each.referenceID, each.fetchBeginDate, each.fetchEndDate, each.hashTag,
                 of, now, now, KWSyncStatusCreated);
            statement->exec();
            statement->reset();
        }
        return {};
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<void> KWRepeatInstanceFetchFlag::updateAll(const std::vector<Range> &widened, const QString &of,
                                                  ObjectContext &in)
{
    if (widened.empty()) return {};
    try {
        auto statement = in.bulkWriting().prepare(
            "UPDATE repeatInstanceFetchFlags SET fetchBeginDate = ?, fetchEndDate = ?, modifiedTime = ? "
            "WHERE userID = ? AND referenceID = ?");
        const std::int64_t now = storedInstant(in.clock().now());
        for (const Range &each : widened) {
            statement.bind({storedInstant(each.fetchBeginDate), storedInstant(each.fetchEndDate), now, of,
                            each.referenceID});
            statement->exec();
            statement->reset();
        }
        return {};
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<void> KWRepeatInstanceFetchFlag::deleteAllWithRefreenceIDs(const QStringList &ids, const QString &of,
                                                                  ObjectContext &in)
{
    return deleteRowsOfSources("repeatInstanceFetchFlags INDEXED BY repeatInstanceFetchFlagsBySource", ids,
                               of, in);
}
