#pragma once

#include "platform/Bus.h"

#include <QObject>
#include <QVariant>

#include <functional>
#include <memory>

class PortalSettings;

/// Whether the person wants the desktop dark or light, as the desktop portal says: the setting
/// color-scheme of org.freedesktop.appearance in the interface org.freedesktop.portal.Settings (XDG Desktop
/// Portal, "Settings"). Main thread.
class PortalColorScheme : public QObject {
public:
    /// The raw values are those of the portal.
    enum class Preference { None = 0, Dark = 1, Light = 2 };
    /// `connector` connects to the bus at start(); the session bus without one.
    explicit PortalColorScheme(BusConnector connector = QDBusConnection::sessionBus);
    ~PortalColorScheme() override;

    /// Asks, without waiting, and listens from then on; for when the first window is painted. Without a
    /// bus or a portal a line goes into the log and the preference stays None.
    void start();

    Preference preference() const { return m_preference; }
    /// The preference is another one now.
    std::function<void(Preference)> onChanged;

private:
    void ask();
    void take(QVariant value);

    BusConnector m_connector;
    std::unique_ptr<PortalSettings> m_settings;
    Preference m_preference = Preference::None;
};
