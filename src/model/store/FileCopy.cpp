#include "model/store/FileCopy.h"

#include "model/store/StoreFailure.h"

#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>

namespace {

constexpr qint64 chunkSize = 1 << 20;

Error fileFailure(const char *sentence, const QString &path)
{
    return {storeText(sentence).arg(QFileInfo{path}.fileName())};
}

Error notWritten(const QSaveFile &file)
{
    return {storeText("The file “%1” could not be written: %2.")
                .arg(QFileInfo{file.fileName()}.fileName(), file.errorString())};
}

} // namespace

Result<qint64> checkedFile(const QString &path, qint64 maximumSize)
{
    const QFileInfo info{path};
    if (info.isDir()) return fileFailure("“%1” is a folder. Only files can be attached.", path);
    if (!info.exists()) return fileFailure("There is no file “%1” any more.", path);
    if (!info.isFile() || !info.isReadable()) return fileFailure("The file “%1” cannot be read.", path);
    if (info.size() > maximumSize)
        return Error{storeText("The file “%1” is too large: %2 at most can be attached.")
                         .arg(info.fileName(),
                              QLocale{}.formattedDataSize(maximumSize, 0, QLocale::DataSizeSIFormat))};
    return info.size();
}

Result<void> copyFile(const QString &source, const QString &target)
{
    QFile from{source};
    if (!from.open(QFile::ReadOnly)) return fileFailure("The file “%1” cannot be read.", source);
    QSaveFile to{target};
    if (!to.open(QFile::WriteOnly)) return notWritten(to);
    for (;;) {
        const QByteArray chunk = from.read(chunkSize);
        if (from.error() != QFile::NoError) return fileFailure("The file “%1” cannot be read.", source);
        if (chunk.isEmpty()) break;
        if (to.write(chunk) != chunk.size()) return notWritten(to);
    }
    return to.commit() ? Result<void>{} : notWritten(to);
}
