#pragma once

#include "calendar/subscriptions/FeedDownloadPort.h"
#include "corvexkit/time/ClockCall.h"

#include <QNetworkReply>
#include <QObject>

class CXClock;
class QNetworkAccessManager;

/// One calendar on its way; it deletes itself when it has told what came of it. Main thread.
class FeedTransfer : public QObject {
public:
    FeedTransfer(QNetworkAccessManager &network, CXClock &clock, const FeedRequest &request,
                 FeedDownloadPort::Completion completion);

    void begin();

private:
    void ask(const QUrl &url);
    void readMore();
    void finish();
    void follow(const QUrl &target);
    Result<FeedAnswer> answer();
    void fail(const QString &sentence);
    void end(const Result<FeedAnswer> &answer);

    QNetworkAccessManager &m_network;
    CXClock &m_clock;
    const FeedRequest m_request;
    FeedDownloadPort::Completion m_completion;
    QNetworkReply *m_reply = nullptr; // ours
    QByteArray m_body;
    int m_redirects = 0;
    ClockCall m_timeout;
};
