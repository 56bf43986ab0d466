#include "corvexkit/log/CXLog.h"

#include "corvexkit/time/TimeText.h"

#include <QLoggingCategory>

#include <array>
#include <mutex>

using namespace Qt::StringLiterals;

namespace {

struct LogState {
    std::mutex mutex;
    std::shared_ptr<CXLogSink> sink;
    std::function<Instant()> now;
};

LogState &logState()
{
    static LogState &state = *new LogState; // lines may come while statics are taken down
    return state;
}

Instant systemNow()
{
    using namespace std::chrono;
    return floor<milliseconds>(system_clock::now());
}

QLatin1String levelName(CXLogLevel level)
{
    constexpr std::array names{QLatin1String{"debug"}, QLatin1String{"info"}, QLatin1String{"warning"},
                               QLatin1String{"error"}};
    return names[std::size_t(level)];
}

QString entry(Instant when, CXLogLevel level, QStringView category, QStringView text)
{
    while (text.endsWith(u'\n') || text.endsWith(u'\r'))
        text.chop(1);
    QString body = text.toString();
    body.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u"\n"_s, u"\n    "_s);
    const QString time = TimeText::fromInstant(when, TimeText::Fraction::Always);
    return u"%1 %2 %3: %4\n"_s.arg(time, levelName(level), category, body);
}

// A sink that fails may make Qt complain: such a message must not come back to the sink.
thread_local bool insideSink = false;

QtMessageHandler previousHandler = nullptr;

CXLogLevel levelOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return CXLogLevel::Debug;
    case QtInfoMsg:
        return CXLogLevel::Info;
    case QtWarningMsg:
        return CXLogLevel::Warning;
    default:
        return CXLogLevel::Error;
    }
}

void writeQtMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const QString given = QString::fromUtf8(context.category);
    const QString category = given.isEmpty() || given == u"default" ? u"qt"_s : given;
    const CXLogLevel level = levelOf(type);
    if (CXLog::isEnabled(level)) CXLog::write(level, category, text);
    if (type == QtFatalMsg && previousHandler) previousHandler(type, context, text);
}

} // namespace

namespace CXLog {

std::shared_ptr<CXLogSink> setSink(std::shared_ptr<CXLogSink> sink)
{
    LogState &state = logState();
    const std::lock_guard lock{state.mutex};
    return std::exchange(state.sink, std::move(sink));
}

void setMinimumLevel(CXLogLevel level) { detail::minimumLevel.store(level, std::memory_order_relaxed); }

void setTimeSource(std::function<Instant()> now)
{
    LogState &state = logState();
    const std::lock_guard lock{state.mutex};
    state.now = std::move(now);
}

void installQtMessageHandler()
{
    const QtMessageHandler before = qInstallMessageHandler(writeQtMessage);
    if (before != writeQtMessage) previousHandler = before;
}

void write(CXLogLevel level, QStringView category, QStringView text)
{
    if (insideSink) return;
    LogState &state = logState();
    const std::lock_guard lock{state.mutex};
    if (!state.sink) return;
    insideSink = true;
    const Instant when = state.now ? state.now() : systemNow();
    state.sink->write(entry(when, level, category, text).toUtf8());
    insideSink = false;
}

} // namespace CXLog
