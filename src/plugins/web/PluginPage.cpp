#include "plugins/web/PluginPage.h"

#include "plugins/web/OwnPage.h"
#include "plugins/web/PageBridge.h"
#include "plugins/web/PagePicture.h"

#include <QContextMenuEvent>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QPageLayout>
#include <QWebChannel>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineView>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRestarts = 3;

// A menu for texts alone: nothing that leads to other pages.
class PageView final : public QWebEngineView {
public:
    using QWebEngineView::QWebEngineView;

protected:
    void contextMenuEvent(QContextMenuEvent *event) override
    {
        auto *menu = new QMenu{this};
        menu->setAttribute(Qt::WA_DeleteOnClose);
        for (const auto action : {QWebEnginePage::Undo, QWebEnginePage::Redo, QWebEnginePage::Cut,
                                  QWebEnginePage::Copy, QWebEnginePage::Paste, QWebEnginePage::SelectAll})
            menu->addAction(pageAction(action));
        menu->popup(event->globalPos());
    }
};

QString contentsOf(const QString &resource)
{
    QFile file{resource};
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString{};
}

// Before any script of the page: the channel, and a function for each method.
QWebEngineScript scriptOf(const PageBridge &bridge)
{
    const QByteArray names =
        QJsonDocument{QJsonArray::fromStringList(bridge.methodNames())}.toJson(QJsonDocument::Compact);
    QWebEngineScript script;
    script.setName(u"bridge"_s);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::MainWorld);
    script.setRunsOnSubFrames(false);
    script.setSourceCode(
        contentsOf(u":/qtwebchannel/qwebchannel.js"_s) +
        contentsOf(u":/orvane/bridge.js"_s).replace(u"METHOD_NAMES"_s, QString::fromUtf8(names)));
    return script;
}

void restrict(QWebEngineSettings &settings)
{
    for (const auto attribute :
         {QWebEngineSettings::PluginsEnabled, QWebEngineSettings::LocalStorageEnabled,
          QWebEngineSettings::LocalContentCanAccessRemoteUrls,
          QWebEngineSettings::LocalContentCanAccessFileUrls, QWebEngineSettings::HyperlinkAuditingEnabled,
          QWebEngineSettings::JavascriptCanOpenWindows, QWebEngineSettings::JavascriptCanAccessClipboard,
          QWebEngineSettings::WebGLEnabled, QWebEngineSettings::PdfViewerEnabled,
          QWebEngineSettings::DnsPrefetchEnabled, QWebEngineSettings::FullScreenSupportEnabled})
        settings.setAttribute(attribute, false);
}

} // namespace

PluginPage::PluginPage(const WebPageRequest &request, QWidget &parent)
    : m_profile(std::make_unique<QWebEngineProfile>()) // keeps nothing
    , m_bridge(std::make_unique<PageBridge>(request.handlers))
    , m_page(std::make_unique<OwnPage>(*m_profile, request.openLink))
    , m_view(new PageView{&parent})
{
    m_profile->setUrlRequestInterceptor(new OwnRequests{m_profile.get()});
    restrict(*m_page->settings());
    m_page->scripts().insert(scriptOf(*m_bridge));
    auto *channel = new QWebChannel{m_page.get()};
    channel->registerObject(u"bridge"_s, m_bridge.get());
    m_page->setWebChannel(channel);
    m_page->setBackgroundColor(Qt::transparent);
    // Its process may end; the page is made anew then, but not again and again.
    QObject::connect(m_page.get(), &QWebEnginePage::renderProcessTerminated, m_view,
                     [view = m_view, restarts = 0]() mutable {
                         if (view && restarts++ < mostRestarts) view->reload();
                     });
    m_view->setPage(m_page.get());
    m_view->load(QUrl{pagesAddress + request.name + u"/index.html"_s});
}

PluginPage::~PluginPage()
{
    delete m_view;
    m_page.reset();
}

QWidget &PluginPage::view() { return *m_view; }

void PluginPage::setLook(const WebPageLook &look)
{
    QJsonObject values;
    for (auto each = look.values.begin(); each != look.values.end(); ++each)
        values.insert(each.key(), each.value());
    const QString source =
        u"(() => { const take = () => { const root = document.documentElement; const values = %1;"
        " for (const name in values) root.style.setProperty(name, values[name]);"
        " root.style.colorScheme = '%2'; root.dir = '%3'; };"
        " document.documentElement ? take() : document.addEventListener('DOMContentLoaded', take); })()"_s
            .arg(QString::fromUtf8(QJsonDocument{values}.toJson(QJsonDocument::Compact)),
                 look.isDark ? u"dark"_s : u"light"_s, look.isRightToLeft ? u"rtl"_s : u"ltr"_s);
    QWebEngineScript script;
    script.setName(u"look"_s);
    script.setInjectionPoint(QWebEngineScript::DocumentReady);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setSourceCode(source);
    for (const QWebEngineScript &each : m_page->scripts().find(u"look"_s))
        m_page->scripts().remove(each);
    m_page->scripts().insert(script);
    m_page->runJavaScript(source, QWebEngineScript::ApplicationWorld);
}

void PluginPage::edit(WebPageEdit action)
{
    static const QHash<WebPageEdit, QWebEnginePage::WebAction> actions{
        {WebPageEdit::Undo, QWebEnginePage::Undo},   {WebPageEdit::Redo, QWebEnginePage::Redo},
        {WebPageEdit::Cut, QWebEnginePage::Cut},     {WebPageEdit::Copy, QWebEnginePage::Copy},
        {WebPageEdit::Paste, QWebEnginePage::Paste}, {WebPageEdit::SelectAll, QWebEnginePage::SelectAll}};
    m_page->triggerAction(actions[action]);
}

bool PluginPage::isReady() const { return m_bridge->isPageReady(); }

// While the page goes it answers what it was asked, with nothing: who asked goes with it.
void PluginPage::printToPdf(std::function<void(const QByteArray &)> done)
{
    const QPageLayout paper{
        QPageSize{QPageSize::A4}, QPageLayout::Portrait, {20, 20, 20, 20}, QPageLayout::Millimeter};
    m_page->printToPdf(
        [view = m_view, done = std::move(done)](const QByteArray &pdf) {
            if (view) done(pdf);
        },
        paper);
}

void PluginPage::drawPicture(int width, std::function<void(const QImage &)> done)
{
    m_page->toHtml([this, view = m_view, width, done = std::move(done)](const QString &html) {
        if (view) new PagePicture{html, m_page->url(), *m_profile, width, *view, done};
    });
}
