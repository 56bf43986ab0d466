#pragma once

#include "views/theme/Theme.h"

#include <QObject>

#include <functional>
#include <optional>

/// Decides which theme is in force and dresses the application in it. There is one, made by shared()
/// at its first use; it needs no application object before apply(). Main thread only.
class ThemeConfigurator : public QObject {
    Q_OBJECT

public:
    enum class Mode { FollowDesktop, Light, Dark };
    using DesktopScheme = std::function<std::optional<ColorScheme>()>;

    static ThemeConfigurator &shared();

    /// Sets style, palette and font of the application. Called once, before the first window.
    void apply();

    /// Of "light" and "dark"; any other text follows the desktop.
    static Mode modeNamed(const QString &name);
    Mode mode() const { return m_mode; }
    void setMode(Mode mode);

    /// How to ask the desktop what it prefers; nothing means that it does not say. Without this, or
    /// without an answer, the brightness of the palette that the program was started with decides.
    void setDesktopScheme(DesktopScheme desktopScheme);

    /// Looks at the desktop again; for waking up and for a change the desktop announces. Does nothing
    /// unless the mode is FollowDesktop.
    void autoSwitchDarkIfNeeded();

    const Theme &theme() const { return *m_theme; }

    /// How much larger than usual the desktop says that text is to be; 1 without this.
    void setDesktopTextScale(double scale);
    /// How large text is: the largest of what the desktop says, of the resolution that it reports, and of the
    /// font that it gave the program; at least 1, the usual size, and 3 at most.
    double textScale() const { return m_textScale; }

Q_SIGNALS:
    /// Colours or sizes changed. Widgets that keep fonts, heights or pictures make them anew; all
    /// windows repaint by themselves.
    void themeChanged();

private:
    ThemeConfigurator();
    ColorScheme wantedScheme() const;
    void dress();

    Mode m_mode = Mode::FollowDesktop;
    const Theme *m_theme = &Theme::light();
    double m_textScale = 1;
    double m_desktopTextScale = 1;
    double m_startFontScale = 1;
    bool m_isApplied = false;
    ColorScheme m_startScheme = ColorScheme::Light;
    DesktopScheme m_desktopScheme;
};
