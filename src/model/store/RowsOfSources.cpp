#include "model/store/RowsOfSources.h"

#include "model/store/Connection.h"
#include "model/store/FindAll.h"
#include "model/store/StoreFailure.h"

Result<void> deleteRowsOfSources(const char *from, const QStringList &ids, const QString &userID,
                                 ObjectContext &context)
{
    if (ids.isEmpty()) return {};
    try {
        auto statement = context.bulkWriting().prepare(
            std::string{"DELETE FROM "} + from +
            " WHERE referenceID IN (SELECT value FROM json_each(?)) AND userID = ?");
        statement.bind({idList(ids), userID});
        statement->exec();
        return {};
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}
