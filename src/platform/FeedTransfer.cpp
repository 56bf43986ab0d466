#include "platform/FeedTransfer.h"

#include "corvexkit/time/CXClock.h"
#include "model/settings/KWLocalizedString.h"
#include "platform/FeedDownload.h"

#include <QNetworkAccessManager>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 pieceBytes = 256 * 1024;

QNetworkRequest requestOf(const QUrl &url, const FeedRequest &wanted)
{
    QNetworkRequest request{url};
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    // Cookies say nothing about a calendar, and would follow people around.
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    // Unpacked pieces are counted as they come; Qt's own limit looks at the proportion alone.
    request.setDecompressedSafetyCheckThreshold(-1);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      u"Orvane/%1"_s.arg(QLatin1StringView{ORVANE_VERSION}));
    request.setRawHeader("Accept", "text/calendar, */*;q=0.1");
    if (!wanted.tag.isEmpty()) request.setRawHeader("If-None-Match", wanted.tag.toLatin1());
    if (!wanted.date.isEmpty()) request.setRawHeader("If-Modified-Since", wanted.date.toLatin1());
    return request;
}

bool isHttp(const QUrl &url) { return url.scheme() == u"https" || url.scheme() == u"http"; }

} // namespace

FeedTransfer::FeedTransfer(QNetworkAccessManager &network, CXClock &clock, const FeedRequest &request,
                           FeedDownloadPort::Completion completion)
    : m_network(network), m_clock(clock), m_request(request), m_completion(std::move(completion))
{
}

void FeedTransfer::begin()
{
    m_timeout = m_clock.callAfter(FeedDownload::longest,
                                  [this] { fail(KWLocalizedString("The server took too long.")); });
    ask(m_request.url);
}

void FeedTransfer::ask(const QUrl &url)
{
    if (!isHttp(url) || url.host().isEmpty())
        return fail(KWLocalizedString("The server points to an address that is no web address."));
    m_body.clear();
    m_reply = m_network.get(requestOf(url, m_request));
    m_reply->setParent(this);
    m_reply->setReadBufferSize(pieceBytes);
    connect(m_reply, &QNetworkReply::readyRead, this, &FeedTransfer::readMore);
    connect(m_reply, &QNetworkReply::finished, this, &FeedTransfer::finish);
}

void FeedTransfer::readMore()
{
    m_body += m_reply->read(FeedDownloadPort::mostBytes + 1 - m_body.size());
    if (m_body.size() > FeedDownloadPort::mostBytes)
        fail(KWLocalizedString("The calendar is larger than 20 MB."));
}

void FeedTransfer::finish()
{
    if (!m_completion) return;
    const QUrl target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (target.isValid()) return follow(m_reply->url().resolved(target));
    while (m_completion && m_reply->bytesAvailable() > 0)
        readMore();
    if (m_completion) end(answer());
}

void FeedTransfer::follow(const QUrl &target)
{
    const bool isSafe = target.scheme() == u"https" || m_reply->url().scheme() == u"http";
    m_reply->disconnect(this);
    m_reply->deleteLater();
    if (!isSafe || !isHttp(target))
        return fail(KWLocalizedString("The server points to an address that is not safe."));
    if (++m_redirects > FeedDownload::mostRedirects)
        return fail(KWLocalizedString("The server points from one address to the next."));
    ask(target);
}

Result<FeedAnswer> FeedTransfer::answer()
{
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status == 304) return FeedAnswer{.isUnchanged = true};
    if (status == 401 || status == 403)
        return Error{KWLocalizedString("The server does not allow to read it.")};
    if (status == 404 || status == 410) return Error{KWLocalizedString("The server has no such calendar.")};
    if (status >= 400) return Error{KWLocalizedString("The server answered with the error %1.").arg(status)};
    if (m_reply->error() != QNetworkReply::NoError || status != 200)
        return Error{KWLocalizedString("The server could not be reached: %1.").arg(m_reply->errorString())};
    const auto header = [this](const char *name) { return QString::fromLatin1(m_reply->rawHeader(name)); };
    return FeedAnswer{.body = m_body, .tag = header("ETag"), .date = header("Last-Modified")};
}

void FeedTransfer::fail(const QString &sentence)
{
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
    }
    end(Error{sentence});
}

void FeedTransfer::end(const Result<FeedAnswer> &answer)
{
    m_timeout.cancel();
    deleteLater();
    if (const auto completion = std::exchange(m_completion, nullptr)) completion(answer);
}
