#pragma once

#include "calendar/subscriptions/FeedDownloadPort.h"
#include "corvexkit/time/CXClock.h"

#include <QNetworkAccessManager>
#include <QObject>

/// Fetches calendars over HTTP (RFC 9110), by conditional requests. Whatever the server does, a request ends:
/// it takes as long as `longest` at most, follows five redirects, and reads 20 MB, counted unpacked.
/// Redirects lead to "https:" only, or from "http:" to "http:"; what names a user stays with its host. Main
/// thread.
class FeedDownload : public QObject, public FeedDownloadPort {
public:
    static constexpr std::chrono::milliseconds longest{30'000};
    static constexpr int mostRedirects = 5;

    explicit FeedDownload(CXClock &clock);

    void download(const FeedRequest &request, Completion completion) override;

private:
    QNetworkAccessManager m_network;
    CXClock &m_clock;
};
