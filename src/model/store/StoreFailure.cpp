#include "model/store/StoreFailure.h"

#include <QCoreApplication>

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

QString storeText(const char *english) { return QCoreApplication::translate("Store", english); }

Error storeFailure(const SQLite::Exception &exception)
{
    switch (exception.getErrorCode()) {
    case SQLITE_FULL:
        return {storeText("The disk is full, so nothing was saved.")};
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return {storeText("The data folder cannot be written, so nothing was saved.")};
    case SQLITE_IOERR:
        return {storeText("The disk reported an error, so nothing was saved.")};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {storeText("Another program keeps the store locked, so nothing was saved.")};
    case SQLITE_NOTFOUND:
        return {storeText("What was to be changed was removed in the meantime, so nothing was saved.")};
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return {storeText("The store file is damaged.")};
    default:
        return {storeText("The store reported a problem: %1.").arg(QString::fromUtf8(exception.what()))};
    }
}
