#pragma once

#include "calendar/ics/IcsBlocks.h"
#include "corvexkit/Result.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <functional>

/// What is asked for: a calendar, unless it is still the one that was read before.
struct FeedRequest {
    QUrl url;      ///< "https:" or "http:"
    QString tag{}; ///< ETag and Last-Modified of what was read before; empty for none
    QString date{};
};

/// What came of it.
struct FeedAnswer {
    bool isUnchanged = false; ///< since it was read before; there is nothing else then
    QByteArray body{};
    QString tag{};
    QString date{};
};

/// Fetches calendars from the network. A port that nobody fills fetches none.
class FeedDownloadPort {
public:
    static constexpr qsizetype mostBytes = IcsBlocks::mostBytes;

    virtual ~FeedDownloadPort() = default;

    /// Calls `completion` once, but not when the port goes first. Main thread.
    using Completion = std::function<void(const Result<FeedAnswer> &)>;
    virtual void download(const FeedRequest &request, Completion completion);
};
