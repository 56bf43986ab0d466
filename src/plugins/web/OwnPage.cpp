#include "plugins/web/OwnPage.h"

#include <QWebEngineNewWindowRequest>

using namespace Qt::StringLiterals;

void OwnRequests::interceptRequest(QWebEngineUrlRequestInfo &request)
{
    const QUrl url = request.requestUrl();
    const bool isOwn = url.toString().startsWith(pagesAddress) || url.scheme() == u"data"_s;
    if (!isOwn) request.block(true);
}

OwnPage::OwnPage(QWebEngineProfile &profile, std::function<void(const QUrl &)> openLink)
    : QWebEnginePage(&profile), m_openLink(std::move(openLink))
{
    connect(this, &QWebEnginePage::newWindowRequested, this,
            [this](const QWebEngineNewWindowRequest &request) {
                if (request.isUserInitiated()) leadOut(request.requestedUrl());
            });
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl &origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
}

bool OwnPage::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame)
{
    const QUrl here = this->url();
    const bool isOwn = url.toString().startsWith(pagesAddress) && (here.isEmpty() || here == url);
    if (isMainFrame && isOwn && type != NavigationTypeFormSubmitted) return true;
    if (isMainFrame && type == NavigationTypeLinkClicked) leadOut(url);
    return false;
}

void OwnPage::leadOut(const QUrl &url) const
{
    const bool isLink = QStringList{u"http"_s, u"https"_s, u"mailto"_s, u"orvane"_s}.contains(url.scheme());
    if (isLink && m_openLink) m_openLink(url);
}

void OwnPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message, int line,
                                       const QString &source)
{
    if (level == ErrorMessageLevel) qWarning("%s:%d: %s", qPrintable(source), line, qPrintable(message));
}
