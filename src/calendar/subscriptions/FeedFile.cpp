#include "calendar/subscriptions/FeedFile.h"

#include "model/settings/KWLocalizedString.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

Result<FeedAnswer> readFeedFile(const FeedRequest &request)
{
    QFile file{request.url.toLocalFile()};
    const QFileInfo info{file};
    // What is no plain file, such as a pipe, might never end.
    if (!info.isFile()) return Error{KWLocalizedString("There is no file “%1”.").arg(file.fileName())};
    const QString date = info.lastModified().toUTC().toString(Qt::ISODateWithMs);
    if (date == request.date) return FeedAnswer{.isUnchanged = true};
    if (!file.open(QIODevice::ReadOnly))
        return Error{KWLocalizedString("The file “%1” cannot be read.").arg(file.fileName())};
    return FeedAnswer{.body = file.read(FeedDownloadPort::mostBytes + 1), .date = date};
}
