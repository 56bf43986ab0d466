#include "model/exchange/ExchangeFile.h"

#include "model/exchange/ExchangeFormat.h"
#include "model/exchange/StoreExport.h"
#include "model/settings/KWLocalizedString.h"

#include <QFileInfo>
#include <QSaveFile>

namespace {

bool mayBeReplaced(const QString &path)
{
    QFile file{path};
    if (!file.exists()) return true;
    if (!QFileInfo{path}.isFile() || !file.open(QIODevice::ReadOnly)) return false;
    const QByteArray begin = QByteArray{"{\"format\": \""} + exchange::formatName + '"';
    return file.size() == 0 || file.read(begin.size()) == begin;
}

} // namespace

Result<void> exportToFile(const QString &file, Store &store)
{
    if (!mayBeReplaced(file))
        return Error{
            KWLocalizedString("“%1” is something else than an export; it was left untouched.").arg(file)};
    QSaveFile target{file};
    const Error failure{KWLocalizedString("“%1” could not be written.").arg(file)};
    if (!target.open(QIODevice::WriteOnly)) return failure;
    const Result<void> written = exportStore(
        store, [&target](const QByteArray &piece) { return target.write(piece) == piece.size(); });
    if (!written) return written;
    return target.commit() ? Result<void>{} : failure;
}

Result<ImportSummary> importFromFile(const QString &file, Store &store)
{
    QFile source{file};
    if (!source.exists()) return Error{KWLocalizedString("There is no file “%1”.").arg(file)};
    if (!source.open(QIODevice::ReadOnly)) return Error{KWLocalizedString("“%1” cannot be read.").arg(file)};
    return importStore(source, store);
}
