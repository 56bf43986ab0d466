#include "views/theme/ThemeConfigurator.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/ThemeStyle.h"

#include <QApplication>
#include <QPalette>
#include <QScreen>

#include <algorithm>

namespace {

constexpr double usualResolution = 96;
constexpr double largestUsualFont = 11; // points; what desktops come with is 9 to 11
constexpr double largestTextScale = 3;

QPalette paletteOf(const Theme &theme)
{
    QPalette palette;
    palette.setColor(QPalette::Window, theme.window);
    palette.setColor(QPalette::WindowText, theme.text);
    palette.setColor(QPalette::Base, theme.window);
    palette.setColor(QPalette::AlternateBase, theme.sidebar);
    palette.setColor(QPalette::Text, theme.text);
    palette.setColor(QPalette::Button, theme.window);
    palette.setColor(QPalette::ButtonText, theme.text);
    palette.setColor(QPalette::BrightText, theme.overdueText);
    palette.setColor(QPalette::Highlight, theme.selection);
    palette.setColor(QPalette::HighlightedText, theme.text);
    palette.setColor(QPalette::PlaceholderText, theme.faintText);
    palette.setColor(QPalette::Link, theme.accentText);
    palette.setColor(QPalette::ToolTipBase, theme.toast);
    palette.setColor(QPalette::ToolTipText, theme.onToast);
    palette.setColor(QPalette::Light, theme.hairline);
    palette.setColor(QPalette::Midlight, theme.hairline);
    palette.setColor(QPalette::Mid, theme.hairline);
    palette.setColor(QPalette::Dark, theme.control);
    palette.setColor(QPalette::Shadow, theme.hairline);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, theme.faintText);
    return palette;
}

// Also of the list that a box of choices opens.
QPalette menuPaletteOf(const Theme &theme)
{
    QPalette palette = paletteOf(theme);
    palette.setColor(QPalette::Window, theme.popup);
    palette.setColor(QPalette::Base, theme.popup);
    return palette;
}

} // namespace

double Metrics::textScale() { return ThemeConfigurator::shared().textScale(); }

ThemeConfigurator::ThemeConfigurator() = default;

ThemeConfigurator &ThemeConfigurator::shared()
{
    static ThemeConfigurator configurator;
    return configurator;
}

void ThemeConfigurator::apply()
{
    if (m_isApplied) return;
    m_isApplied = true;
    m_startFontScale = QGuiApplication::font().pointSizeF() / largestUsualFont;
    const QColor start = QGuiApplication::palette().color(QPalette::Window);
    m_startScheme = start.lightness() < 128 ? ColorScheme::Dark : ColorScheme::Light;
    QApplication::setStyle(new ThemeStyle);
    dress();
}

ThemeConfigurator::Mode ThemeConfigurator::modeNamed(const QString &name)
{
    if (name == u"light") return Mode::Light;
    return name == u"dark" ? Mode::Dark : Mode::FollowDesktop;
}

void ThemeConfigurator::setMode(Mode mode)
{
    if (m_mode == mode) return;
    m_mode = mode;
    dress();
}

void ThemeConfigurator::setDesktopTextScale(double scale)
{
    if (m_desktopTextScale == scale) return;
    m_desktopTextScale = scale;
    dress();
}

void ThemeConfigurator::setDesktopScheme(DesktopScheme desktopScheme)
{
    m_desktopScheme = std::move(desktopScheme);
    autoSwitchDarkIfNeeded();
}

void ThemeConfigurator::autoSwitchDarkIfNeeded()
{
    if (m_mode == Mode::FollowDesktop && wantedScheme() != m_theme->scheme) dress();
}

ColorScheme ThemeConfigurator::wantedScheme() const
{
    if (m_mode == Mode::Light) return ColorScheme::Light;
    if (m_mode == Mode::Dark) return ColorScheme::Dark;
    const auto desktop = m_desktopScheme ? m_desktopScheme() : std::nullopt;
    return desktop.value_or(m_startScheme);
}

void ThemeConfigurator::dress()
{
    m_theme = wantedScheme() == ColorScheme::Dark ? &Theme::dark() : &Theme::light();
    if (!m_isApplied) return;

    // Some desktops say one thing in several ways, so they are not multiplied.
    double resolutionScale = 1;
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        resolutionScale = screen->logicalDotsPerInchY() / usualResolution;
    m_textScale =
        std::clamp(std::max({resolutionScale, m_desktopTextScale, m_startFontScale}), 1.0, largestTextScale);
    QApplication::setFont(Fonts::font(Fonts::Role::Body));
    QApplication::setPalette(paletteOf(*m_theme));
    QApplication::setPalette(menuPaletteOf(*m_theme), "QMenu");
    Q_EMIT themeChanged();
}
