#pragma once

#include "views/web/WebPagePlugin.h"

#include <QWidget>

/// The place of a page of ours: loaded when it is first shown, in the colours of the theme, or the sentence
/// how to get what shows pages. The focus that it is given goes to the page.
class WebPane : public QWidget {
    Q_OBJECT

public:
    using Plugin = std::function<WebPagePlugin *()>;

    explicit WebPane(QWidget *parent = nullptr);
    ~WebPane() override;

    /// Once. `plugin` is asked when the page is first shown; it answers null where there is none.
    void setPage(WebPageRequest request, Plugin plugin);
    /// None before it was shown, and where there is no plugin.
    WebPage *page() const { return m_page.get(); }

protected:
    void showEvent(QShowEvent *event) override;

private:
    void open();
    void explain();
    void dress();

    WebPageRequest m_request;
    Plugin m_plugin;
    std::unique_ptr<WebPage> m_page;
};
