#pragma once

#include "views/web/WebPagePlugin.h"

#include <QPointer>

class PageBridge;
class QWebEngineProfile;
class QWebEngineView;
class QWebEnginePage;

/// A page of ours, of the folder `pages`, in a view of Qt WebEngine.
class PluginPage final : public WebPage {
public:
    PluginPage(const WebPageRequest &request, QWidget &parent);
    ~PluginPage() override;

    QWidget &view() override;
    void setLook(const WebPageLook &look) override;
    void edit(WebPageEdit action) override;
    bool isReady() const override;
    void printToPdf(std::function<void(const QByteArray &)> done) override;
    void drawPicture(int width, std::function<void(const QImage &)> done) override;

private:
    std::unique_ptr<QWebEngineProfile> m_profile; // goes after its pages
    std::unique_ptr<PageBridge> m_bridge;
    std::unique_ptr<QWebEnginePage> m_page;
    QPointer<QWebEngineView> m_view;
};
