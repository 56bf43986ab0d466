#pragma once

#include "corvexkit/time/Instant.h"

#include <QString>

#include <atomic>
#include <concepts>
#include <functional>
#include <memory>

enum class CXLogLevel { Debug, Info, Warning, Error };

/// Where finished lines go. write() is called on any thread, one call at a time.
class CXLogSink {
public:
    virtual ~CXLogSink() = default;
    /// One entry in UTF-8, with its closing line feed. Must not throw.
    virtual void write(const QByteArray &line) = 0;
};

/// The log of the process. Until a sink is set, lines are dropped. Any thread.
namespace CXLog {

/// Replaces the sink; returns the one before. Nothing drops all lines.
std::shared_ptr<CXLogSink> setSink(std::shared_ptr<CXLogSink> sink);
/// Lines below `level` are not written. Info from the start.
void setMinimumLevel(CXLogLevel level);
/// Takes the time of the lines from `now`, which any thread may call; the system's clock without one.
void setTimeSource(std::function<Instant()> now);
/// From now on Qt's own messages are lines too, under their Qt category ("qt" for the default one). A
/// fatal message goes on to the handler before this one as well.
void installQtMessageHandler();

namespace detail {
inline std::atomic<CXLogLevel> minimumLevel{CXLogLevel::Info};
}
inline bool isEnabled(CXLogLevel level)
{
    return level >= detail::minimumLevel.load(std::memory_order_relaxed);
}

/// Writes "2030-05-01T09:00:00.123Z info app: text". Further lines of a text are indented by four
/// spaces, so that a line which begins with a time begins an entry.
void write(CXLogLevel level, QStringView category, QStringView text);

} // namespace CXLog

/// Writes the lines of one category. Make one per source file or service:
/// `constexpr CXLogger logger{u"app"};`. A level that is off costs one comparison; give a function
/// instead of a text where building the text is dear.
class CXLogger {
public:
    constexpr explicit CXLogger(const char16_t *category) : m_category{category} {}

    void debug(const auto &text) const { write(CXLogLevel::Debug, text); }
    void info(const auto &text) const { write(CXLogLevel::Info, text); }
    void warning(const auto &text) const { write(CXLogLevel::Warning, text); }
    void error(const auto &text) const { write(CXLogLevel::Error, text); }

private:
    template <class Text>
    void write(CXLogLevel level, const Text &text) const
    {
        if (!CXLog::isEnabled(level)) return;
        if constexpr (std::invocable<const Text &>)
            CXLog::write(level, m_category, text());
        else
            CXLog::write(level, m_category, text);
    }

    const char16_t *m_category;
};
