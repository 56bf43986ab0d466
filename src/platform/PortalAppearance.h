#pragma once

#include "platform/Bus.h"

#include <QObject>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>

class PortalSettings;

/// How the person wants the desktop to look, as the desktop portal says in the interface
/// org.freedesktop.portal.Settings (XDG Desktop Portal, "Settings"): dark or light, the setting color-scheme
/// of org.freedesktop.appearance; and how large text is, text-scaling-factor of org.gnome.desktop.interface,
/// where the desktop has that one. Main thread.
class PortalAppearance : public QObject {
public:
    /// The raw values are those of the portal.
    enum class ColorScheme { None = 0, Dark = 1, Light = 2 };
    /// `connector` connects to the bus at start(); the session bus without one.
    explicit PortalAppearance(BusConnector connector = QDBusConnection::sessionBus);
    ~PortalAppearance() override;

    /// Asks, without waiting, and listens from then on; for when the first window is painted. Without a
    /// bus or a portal, or where the desktop does not say, a line goes into the log and nothing is told.
    void start();

    /// The desktop says another one than before, than None at first.
    std::function<void(ColorScheme)> onColorScheme;
    /// The desktop says how large text is, first and when that changes: 1 is the usual size.
    std::function<void(double)> onTextScale;

private:
    struct Key {
        QString nameSpace;
        QString name;
        bool operator==(const Key &) const = default;
    };
    static const Key colorScheme;
    static const Key textScale;

    void ask(const Key &key);
    void take(const Key &key, QVariant value);

    BusConnector m_connector;
    std::unique_ptr<PortalSettings> m_settings;
    ColorScheme m_colorScheme = ColorScheme::None;
    std::optional<double> m_textScale;
};
