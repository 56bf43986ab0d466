#include "support/Files.h"

#include <QFile>

QByteArray bytesOf(const QString &path)
{
    QFile file{path};
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray{};
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file{path};
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", qUtf8Printable(path));
}
