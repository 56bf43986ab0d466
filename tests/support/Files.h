#pragma once

#include <QByteArray>
#include <QString>

/// The bytes of a file; none where there is no such file.
QByteArray bytesOf(const QString &path);

/// Replaces what the file holds; a file that cannot be written ends the program with a message.
void write(const QString &path, const QByteArray &bytes);
