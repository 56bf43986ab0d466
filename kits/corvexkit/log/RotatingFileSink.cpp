#include "corvexkit/log/RotatingFileSink.h"

#include <QDir>

#include <cstdio>

using namespace Qt::StringLiterals;

RotatingFileSink::RotatingFileSink(QString folder) : RotatingFileSink{std::move(folder), Limits{}} {}

RotatingFileSink::RotatingFileSink(QString folder, Limits limits)
    : m_folder{std::move(folder)}, m_limits{limits}
{
}

QString RotatingFileSink::path(int age) const
{
    return age == 0 ? m_folder + u"/orvane.log"_s : m_folder + u"/orvane.%1.log"_s.arg(age);
}

void RotatingFileSink::write(const QByteArray &line)
{
    if (m_gaveUp) return;
    const bool ready = m_file.isOpen() || open();
    const bool full = m_size > 0 && m_size + line.size() > m_limits.bytes;
    if (!ready || (full && !rotate()) || m_file.write(line) != line.size()) giveUp(line);
    m_size += line.size();
}

bool RotatingFileSink::open()
{
    QDir{}.mkpath(m_folder);
    m_file.setFileName(path(0));
    // Appending lets two processes share the file; unbuffered leaves nothing behind in a crash.
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) return false;
    m_size = m_file.size();
    return true;
}

bool RotatingFileSink::rotate()
{
    m_file.close();
    QFile::remove(path(m_limits.files - 1));
    for (int age = m_limits.files - 1; age > 0; --age)
        QFile::rename(path(age - 1), path(age));
    return open();
}

void RotatingFileSink::giveUp(const QByteArray &line)
{
    m_gaveUp = true;
    std::fprintf(stderr, "The log file %s cannot be written (%s); further log lines are dropped.\n%s",
                 qUtf8Printable(QDir::toNativeSeparators(path(0))), qUtf8Printable(m_file.errorString()),
                 line.constData());
}
