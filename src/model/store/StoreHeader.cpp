#include "model/store/StoreHeader.h"

#include "model/store/Migrations.h"

#include <QFileInfo>
#include <QtEndian>

#include <sqlite3.h>

#include <cstddef>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int headerSize = 100;
constexpr int pageSizeOffset = 16;
constexpr int pageCountOffset = 28;
constexpr int userVersionOffset = 60;
constexpr int applicationIDOffset = 68;

// Read through SQLite's file layer, which keeps the locks that a store open in this process has on the file;
// closing a descriptor of our own would drop them (POSIX fcntl).
std::optional<QByteArray> headerOf(const QString &path)
{
    sqlite3_vfs *files = sqlite3_vfs_find(nullptr);
    const QByteArray absolute = QFileInfo{path}.absoluteFilePath().toUtf8();
    const std::unique_ptr<const char, decltype(&sqlite3_free_filename)> name{
        sqlite3_create_filename(absolute.constData(), "", "", 0, nullptr), sqlite3_free_filename};
    const auto memory = std::make_unique<std::byte[]>(std::size_t(files->szOsFile));
    auto *file = reinterpret_cast<sqlite3_file *>(memory.get());
    constexpr int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_MAIN_DB;
    if (files->xOpen(files, name.get(), file, flags, nullptr) != SQLITE_OK) return std::nullopt;
    QByteArray header(headerSize, '\0');
    const int result = file->pMethods->xRead(file, header.data(), headerSize, 0);
    file->pMethods->xClose(file);
    // The rest of a shorter file is given as zeroes.
    return result == SQLITE_OK || result == SQLITE_IOERR_SHORT_READ ? std::optional{header} : std::nullopt;
}

// A log that was not copied back yet may hold the rest.
bool isCut(const QString &path, const QByteArray &header)
{
    const auto pageSize = qFromBigEndian<quint16>(header.constData() + pageSizeOffset);
    const auto pageCount = qFromBigEndian<quint32>(header.constData() + pageCountOffset);
    const bool hasLog = QFileInfo{path + u"-wal"_s}.size() > 0;
    return !hasLog && QFileInfo{path}.size() < qint64(pageSize == 1 ? 65536 : pageSize) * pageCount;
}

} // namespace

std::optional<StoreProblem> StoreHeader::problemAt(const QString &path)
{
    if (QFileInfo{path}.isDir()) return StoreProblem::NotAStore;
    if (QFileInfo{path}.size() == 0) return std::nullopt;
    const std::optional<QByteArray> header = headerOf(path);
    if (!header) return StoreProblem::CannotWrite;
    if (!header->startsWith(QByteArray{"SQLite format 3\0", 16})) return StoreProblem::NotAStore;
    const auto number = [&header](int offset) {
        return qFromBigEndian<quint32>(header->constData() + offset);
    };
    if (number(applicationIDOffset) != applicationID) return StoreProblem::NotAStore;
    if (number(userVersionOffset) > quint32(Migrations::currentVersion())) return StoreProblem::NewerVersion;
    if (isCut(path, *header)) return StoreProblem::Damaged;
    return std::nullopt;
}
