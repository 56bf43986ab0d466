#include "views/web/WebPane.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/PlainLabel.h"
#include "views/theme/Metrics.h"
#include "views/theme/ThemeConfigurator.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QInputMethodQueryEvent>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

WebPane::WebPane(QWidget *parent) : QWidget(parent)
{
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, &WebPane::dress);
}

WebPane::~WebPane() = default;

void WebPane::setPage(WebPageRequest request, Plugin plugin)
{
    request.handlers += m_request.handlers;
    m_request = std::move(request);
    if (!m_request.openLink) m_request.openLink = [](const QUrl &url) { QDesktopServices::openUrl(url); };
    m_plugin = std::move(plugin);
    if (isVisible()) open();
}

void WebPane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_plugin) open();
}

void WebPane::open()
{
    WebPagePlugin *plugin = std::exchange(m_plugin, nullptr)();
    if (!plugin) return explain();
    m_page = plugin->open(m_request, *this);
    layout()->addWidget(&m_page->view());
    setFocusProxy(&m_page->view());
    dress();
}

bool WebPane::isTyping() const
{
    QWidget *focused = focusWidget();
    if (!focused) return false;
    QInputMethodQueryEvent query{Qt::ImEnabled};
    QCoreApplication::sendEvent(focused, &query);
    return query.value(Qt::ImEnabled).toBool();
}

void WebPane::explain()
{
    auto *words = makePlainLabel(
        KWLocalizedString("Pages such as this one are shown by a part of Orvane that is not here, "
                          "or does not start. Install the package “orvane-web” and start "
                          "Orvane anew."),
        Fonts::Role::Body, QPalette::PlaceholderText);
    words->setObjectName(u"webPaneMissing"_s);
    words->setWordWrap(true);
    words->setAlignment(Qt::AlignCenter);
    words->setFocusPolicy(Qt::TabFocus);
    words->setContentsMargins(Metrics::margin, Metrics::margin, Metrics::margin, Metrics::margin);
    layout()->addWidget(words);
    setFocusProxy(words);
}

void WebPane::dress()
{
    if (!m_page) return;
    const Theme &theme = Theme::current();
    const QFont font = Fonts::font(Fonts::Role::Body);
    m_page->setLook({.values = {{u"--window"_s, theme.window.name()},
                                {u"--text"_s, theme.text.name()},
                                {u"--secondary"_s, theme.secondaryText.name()},
                                {u"--hairline"_s, theme.hairline.name()},
                                {u"--hover"_s, theme.hover.name()},
                                {u"--accent"_s, theme.accent.name()},
                                {u"--soft-accent"_s, theme.softAccent.name()},
                                {u"--accent-text"_s, theme.onAccent.name()},
                                {u"--font"_s, u"\"%1\", sans-serif"_s.arg(font.family())},
                                {u"--font-size"_s, u"%1px"_s.arg(QFontInfo{font}.pixelSize())}},
                     .isDark = theme.scheme == ColorScheme::Dark,
                     .isRightToLeft = isRightToLeft()});
}
