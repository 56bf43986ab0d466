#pragma once

#include "corvexkit/time/Instant.h"

#include <QByteArray>
#include <QString>

#include <vector>

class QIODevice;

/// Writes a ZIP archive (PKWARE APPNOTE 6.3.10, without its extensions for files of 4 GiB and more), each
/// file compressed by deflate (RFC 1951), names in UTF-8.
class ZipWriter {
public:
    /// `device` is open for writing and outlives the writer.
    explicit ZipWriter(QIODevice &device) : m_device(device) {}

    /// `name` has "/" between folders. `modified` is a local time; ZIP knows years from 1980 to 2107.
    void add(const QString &name, const QByteArray &contents, LocalTime modified);
    /// Writes the directory behind the files; the last call. Whether all of the archive was written.
    [[nodiscard]] bool finish();

private:
    void write(const QByteArray &bytes);

    QIODevice &m_device;
    quint32 m_length = 0;
    std::vector<QByteArray> m_directory;
    bool m_isGood = true;
};
