#pragma once

#include "corvexkit/log/CXLog.h"

#include <QFile>

/// Appends to orvane.log in a folder. When the file would grow beyond its limit it becomes
/// orvane.1.log, the older ones move up by one, and the oldest is removed. The file (and the folder) is
/// made at the first line; every line is handed to the system at once, so a crash loses none. Where the
/// file cannot be written, the reason and that line go to standard error, and later lines nowhere.
class RotatingFileSink final : public CXLogSink {
public:
    struct Limits {
        qint64 bytes = 1'000'000; ///< of one file
        int files = 5;            ///< the current one counted; at least 1
    };
    explicit RotatingFileSink(QString folder);
    RotatingFileSink(QString folder, Limits limits);

    void write(const QByteArray &line) override;

private:
    QString path(int age) const;
    bool open();
    bool rotate();
    void giveUp(const QByteArray &line);

    const QString m_folder;
    const Limits m_limits;
    QFile m_file;
    qint64 m_size = 0;
    bool m_gaveUp = false;
};
