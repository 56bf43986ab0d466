#pragma once

#include <QWebEnginePage>
#include <QWebEngineUrlRequestInterceptor>

#include <functional>

/// Where our pages are.
inline const QString pagesAddress = QStringLiteral("qrc:/orvane/pages/");

/// Nothing but what the program brings is fetched.
class OwnRequests final : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
    void interceptRequest(QWebEngineUrlRequestInfo &request) override;
};

/// Stays on the page that it was opened on. What leads out of it is a link for others to open, if it is one
/// to the web, a mail or a task; windows, frames and everything else are refused.
class OwnPage final : public QWebEnginePage {
    Q_OBJECT

public:
    OwnPage(QWebEngineProfile &profile, std::function<void(const QUrl &)> openLink);

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message, int line,
                                  const QString &source) override;

private:
    void leadOut(const QUrl &url) const;

    std::function<void(const QUrl &)> m_openLink;
};
