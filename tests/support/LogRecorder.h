#pragma once

#include "corvexkit/log/CXLog.h"

#include <QStringList>

/// Takes the log's lines for as long as it lives.
class LogRecorder {
public:
    LogRecorder() : m_before{CXLog::setSink(m_sink)} {}
    LogRecorder(const LogRecorder &) = delete;
    LogRecorder &operator=(const LogRecorder &) = delete;
    ~LogRecorder() { CXLog::setSink(m_before); }

    /// The lines of one category, without time and level.
    QStringList lines(const QString &category) const
    {
        QStringList texts;
        const QString mark = QLatin1Char(' ') + category + QStringLiteral(": ");
        for (const QString &line : m_sink->lines)
            if (const auto position = line.indexOf(mark); position >= 0)
                texts << line.mid(position + mark.size());
        return texts;
    }

private:
    struct Sink final : CXLogSink {
        void write(const QByteArray &line) override { lines << QString::fromUtf8(line).trimmed(); }
        QStringList lines;
    };
    std::shared_ptr<Sink> m_sink = std::make_shared<Sink>();
    std::shared_ptr<CXLogSink> m_before;
};
