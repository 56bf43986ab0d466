#pragma once

#include <QImage>
#include <QList>
#include <QUrl>
#include <QtPlugin>

#include <functional>
#include <memory>

class QWidget;

/// How a page looks like the rest of the client.
struct WebPageLook {
    QMap<QString, QString> values; ///< of CSS, by the names of their variables ("--text")
    bool isDark = false;
    bool isRightToLeft = false;
};

/// What the Edit menu does with a text that has the focus.
enum class WebPageEdit { Undo, Redo, Cut, Copy, Paste, SelectAll };

/// A page of ours in a web view. Main thread.
class WebPage {
public:
    virtual ~WebPage() = default;

    /// It takes the focus. Owned by its parent.
    virtual QWidget &view() = 0;
    /// From now on, for as long as the page is there.
    virtual void setLook(const WebPageLook &look) = 0;
    virtual void edit(WebPageEdit action) = 0;
    /// What the page shows at first is on the screen.
    virtual bool isReady() const = 0;
    /// Pages of paper as the page is printed; empty when that fails.
    virtual void printToPdf(std::function<void(const QByteArray &)> done) = 0;
    /// The page from its top to its end as it is printed, `width` pixels wide; none when that fails.
    virtual void drawPicture(int width, std::function<void(const QImage &)> done) = 0;
};

struct WebPageRequest {
    QString name; ///< of the page: "summary"
    /// What the page may call: the slots of one text that answer a text, see JsApiHandleObject. Their signals
    /// of one text are events of its window. All outlive the page.
    QList<QObject *> handlers;
    /// A link that leads out of the page.
    std::function<void(const QUrl &)> openLink;
};

/// What the plugin `web` does. It shows pages of ours alone, lets them reach nothing else, and keeps nothing
/// of them.
class WebPagePlugin {
public:
    virtual ~WebPagePlugin() = default;

    virtual std::unique_ptr<WebPage> open(const WebPageRequest &request, QWidget &parent) = 0;
};

#define WebPagePlugin_iid "org.orvane.WebPagePlugin/2"
Q_DECLARE_INTERFACE(WebPagePlugin, WebPagePlugin_iid)
