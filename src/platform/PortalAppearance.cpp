#include "platform/PortalAppearance.h"

#include "corvexkit/log/CXLog.h"
#include "platform/PortalSettings.h"

#include <QDBusPendingReply>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger appearanceLog{u"appearance"};

// Beyond these a desktop does not go, and a window could not be used.
constexpr double smallestTextScale = 0.5;
constexpr double largestTextScale = 3;

} // namespace

const PortalAppearance::Key PortalAppearance::colorScheme{u"org.freedesktop.appearance"_s, u"color-scheme"_s};
const PortalAppearance::Key PortalAppearance::textScale{u"org.gnome.desktop.interface"_s,
                                                        u"text-scaling-factor"_s};

PortalAppearance::PortalAppearance(BusConnector connector) : m_connector(std::move(connector)) {}

PortalAppearance::~PortalAppearance() = default;

void PortalAppearance::start()
{
    const QDBusConnection bus = m_connector();
    if (!bus.isConnected())
        return appearanceLog.info(u"No session bus: the desktop does not say what it prefers."_s);

    m_settings = std::make_unique<PortalSettings>(bus);
    connect(m_settings.get(), &PortalSettings::SettingChanged, this,
            [this](const QString &nameSpace, const QString &name, const QDBusVariant &value) {
                take({nameSpace, name}, value.variant());
            });
    ask(colorScheme);
    ask(textScale);
}

void PortalAppearance::ask(const Key &key)
{
    // ReadOne is younger than many portals; Read is answered by all.
    const QDBusPendingCall call = m_settings->asyncCall(u"Read"_s, key.nameSpace, key.name);
    whenAnswered(call, *this, [this, key](const QDBusPendingReply<QDBusVariant> &reply) {
        if (reply.isError())
            appearanceLog.info(
                u"The desktop does not say its %1: %2"_s.arg(key.name, reply.error().message()));
        else
            take(key, reply.value().variant());
    });
}

void PortalAppearance::take(const Key &key, QVariant value)
{
    // Read wraps the value twice.
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    if (key == colorScheme) {
        const uint raw = value.toUInt();
        const ColorScheme scheme = raw > uint(ColorScheme::Light) ? ColorScheme::None : ColorScheme(raw);
        if (std::exchange(m_colorScheme, scheme) != scheme && onColorScheme) onColorScheme(scheme);
    } else if (key == textScale) {
        const double scale = value.toDouble();
        if (!(scale >= smallestTextScale && scale <= largestTextScale)) return;
        if (std::exchange(m_textScale, scale) != scale && onTextScale) onTextScale(scale);
    }
}
