#include "model/store/StoreIntegrity.h"

#include "model/store/Connection.h"

#include <sqlite3.h>

std::optional<QString> damageIn(Connection &connection)
{
    try {
        auto check = connection.prepare("PRAGMA quick_check(1)");
        const QString answer =
            check->executeStep() ? QString::fromUtf8(check->getColumn(0).getText()) : QString{};
        return answer == QLatin1StringView{"ok"} ? std::nullopt : std::optional{answer};
    } catch (const SQLite::Exception &exception) {
        const int code = exception.getErrorCode();
        if (code != SQLITE_CORRUPT && code != SQLITE_NOTADB) throw;
        return QString::fromUtf8(exception.what());
    }
}
