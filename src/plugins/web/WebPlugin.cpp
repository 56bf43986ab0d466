#include "plugins/web/PluginPage.h"

#include <QQuickWindow>

#include <unistd.h>

class WebPlugin : public QObject, public WebPagePlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID WebPagePlugin_iid)
    Q_INTERFACES(WebPagePlugin)

public:
    WebPlugin()
    {
        // The engine's sandbox refuses to run for the administrator.
        if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); // what it draws is still
    }

    std::unique_ptr<WebPage> open(const WebPageRequest &request, QWidget &parent) override
    {
        return std::make_unique<PluginPage>(request, parent);
    }
};

#include "WebPlugin.moc"
