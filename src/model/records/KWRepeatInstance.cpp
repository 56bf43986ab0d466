#include "model/records/KWRepeatInstance.h"

#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/FindAll.h"
#include "model/store/RowsOfSources.h"
#include "model/store/StoreFailure.h"

Result<std::vector<KWRepeatInstance::Start>>
KWRepeatInstance::instancesOfUser(const QString &userID, const QStringList &referenceTo,
                                  Instant betweenStartDate, Instant andEndDate, ObjectContext &context)
{
    try {
        auto statement = context.connection().prepare("SELECT referenceID, startDate, isDeleted FROM "
                                                      "repeatInstances INDEXED BY repeatInstancesBySource "
                                                      "WHERE referenceID IN (SELECT value FROM json_each(?)) "
                                                      "AND startDate BETWEEN ? AND ? AND userID = ? "
                                                      "ORDER BY referenceID, startDate");
        statement.bind(
            {idList(referenceTo), storedInstant(betweenStartDate), storedInstant(andEndDate), userID});
        std::vector<Start> found;
        while (statement->executeStep()) {
            Start &start = found.emplace_back();
            columns::read(statement->getColumn(0), start.referenceID);
            columns::read(statement->getColumn(1), start.startDate);
            columns::read(statement->getColumn(2), start.isDeleted);
        }
        return found;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<void> KWRepeatInstance::insertAll(const std::vector<Made> &made, const QString &of, ObjectContext &in)
{
    if (made.empty()) return {};
    try {
        auto statement = in.bulkWriting().prepare(
            "INSERT INTO repeatInstances (sid, referenceID, instanceType, startDate, endDate, userID, etag, "
            "sortOrder, createdTime, modifiedTime, syncStatus, pendingChanges, isDeleted) "
            "VALUES (?, ?, ?, ?, ?, ?, '', 0, ?, ?, ?, 0, 0)");
        const Instant now = in.clock().now();
        RecordIdentifiers identifiers{now};
        const auto bindShared = [&](int column, const auto &...values) {
            (columns::bind(*statement, column++, values), ...);
        };
        bindShared(6, of, now, now, KWSyncStatusCreated);
        std::string sid;
        std::string referenceID;
        const QString *bound = nullptr;
        for (const Made &each : made) {
            sid = identifiers.next().toStdString();
            statement->bindNoCopy(1, sid);
            if (!bound || *bound != each.referenceID) {
                bound = &each.referenceID;
                referenceID = bound->toStdString();
                statement->bindNoCopy(2, referenceID);
                columns::bind(*statement, 3, each.instanceType);
            }
            columns::bind(*statement, 4, each.startDate);
            columns::bind(*statement, 5, each.endDate);
            statement->exec();
            statement->reset();
        }
        return {};
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<void> KWRepeatInstance::deleteAllWithRefreenceIDs(const QStringList &ids, const QString &of,
                                                         ObjectContext &in)
{
    return deleteRowsOfSources("repeatInstances INDEXED BY repeatInstancesBySource", ids, of, in);
}
