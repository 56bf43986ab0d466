#include "model/store/OutsideChange.h"

#include "model/settings/KWLocalizedString.h"

#include <QFile>
#include <QUuid>

Result<void> announceOutsideChange(const DataFolders &folders)
{
    // Written in place, not renamed over: a watch is on the file, not on its name.
    QFile file{folders.outsideChange()};
    const QByteArray stamp = QUuid::createUuid().toByteArray(QUuid::WithoutBraces);
    if (file.open(QIODevice::WriteOnly) && file.write(stamp) == stamp.size() && file.flush()) return {};
    return Error{KWLocalizedString("The open window could not be told of the change: “%1” cannot be written.")
                     .arg(file.fileName())};
}

QByteArray lastOutsideChange(const DataFolders &folders)
{
    QFile file{folders.outsideChange()};
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray{};
}
