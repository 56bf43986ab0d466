#include "corvexkit/log/RotatingFileSink.h"

#include <QDir>

#include <cstdio>

using namespace Qt::StringLiterals;

RotatingFileSink::RotatingFileSink(QString folder) : RotatingFileSink{std::move(folder), Limits{}} {}

RotatingFileSink::RotatingFileSink(QString folder, Limits limits)
    : folder_{std::move(folder)}, limits_{limits}
{
}

QString RotatingFileSink::path(int age) const
{
    return age == 0 ? folder_ + u"/orvane.log"_s : folder_ + u"/orvane.%1.log"_s.arg(age);
}

void RotatingFileSink::write(const QByteArray &line)
{
    if (gaveUp_) return;
    const bool ready = file_.isOpen() || open();
    const bool full = size_ > 0 && size_ + line.size() > limits_.bytes;
    if (!ready || (full && !rotate()) || file_.write(line) != line.size()) giveUp(line);
    size_ += line.size();
}

bool RotatingFileSink::open()
{
    QDir{}.mkpath(folder_);
    file_.setFileName(path(0));
    // Appending lets two processes share the file; unbuffered leaves nothing behind in a crash.
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) return false;
    size_ = file_.size();
    return true;
}

bool RotatingFileSink::rotate()
{
    file_.close();
    QFile::remove(path(limits_.files - 1));
    for (int age = limits_.files - 1; age > 0; --age)
        QFile::rename(path(age - 1), path(age));
    return open();
}

void RotatingFileSink::giveUp(const QByteArray &line)
{
    gaveUp_ = true;
    std::fprintf(stderr, "The log file %s cannot be written (%s); further log lines are dropped.\n%s",
                 qUtf8Printable(QDir::toNativeSeparators(path(0))), qUtf8Printable(file_.errorString()),
                 line.constData());
}
