#pragma once

#include "views/controls/UnsavedTexts.h"
#include "views/web/WebPagePlugin.h"

#include <QWidget>

/// The place of a page of ours: loaded when it is first shown, in the colours of the theme, or the sentence
/// how to get what shows pages. The focus that it is given goes to the page.
class WebPane : public QWidget, public UnsavedTextHolder {
    Q_OBJECT

public:
    using Plugin = std::function<WebPagePlugin *()>;

    explicit WebPane(QWidget *parent = nullptr);
    ~WebPane() override;

    /// Another handler for the page to come. It outlives the page.
    void addHandler(QObject &handler) { m_request.handlers.append(&handler); }
    /// What the person has typed into the page and would lose with it.
    void setUnsavedTexts(std::function<QStringList()> texts) { m_unsavedTexts = std::move(texts); }
    QStringList unsavedTexts() override { return m_unsavedTexts ? m_unsavedTexts() : QStringList{}; }

    /// Once. `plugin` is asked when the page is first shown; it answers null where there is none.
    void setPage(WebPageRequest request, Plugin plugin);
    /// Whether a text is typed into that has the focus.
    bool isTyping() const;
    void edit(WebPageEdit action)
    {
        if (m_page) m_page->edit(action);
    }
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
    std::function<QStringList()> m_unsavedTexts;
    std::unique_ptr<WebPage> m_page;
};
