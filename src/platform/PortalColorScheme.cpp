#include "platform/PortalColorScheme.h"

#include "corvexkit/log/CXLog.h"
#include "platform/PortalSettings.h"

#include <QDBusPendingReply>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger appearanceLog{u"appearance"};
const QString appearance = u"org.freedesktop.appearance"_s;
const QString colorScheme = u"color-scheme"_s;

} // namespace

PortalColorScheme::PortalColorScheme(BusConnector connector) : m_connector(std::move(connector)) {}

PortalColorScheme::~PortalColorScheme() = default;

void PortalColorScheme::start()
{
    const QDBusConnection bus = m_connector();
    if (!bus.isConnected())
        return appearanceLog.info(u"No session bus: the desktop does not say what it prefers."_s);

    m_settings = std::make_unique<PortalSettings>(bus);
    connect(m_settings.get(), &PortalSettings::SettingChanged, this,
            [this](const QString &nameSpace, const QString &key, const QDBusVariant &value) {
                if (nameSpace == appearance && key == colorScheme) take(value.variant());
            });
    ask();
}

void PortalColorScheme::ask()
{
    // ReadOne is younger than many portals; Read is answered by all.
    const QDBusPendingCall call = m_settings->asyncCall(u"Read"_s, appearance, colorScheme);
    whenAnswered(call, *this, [this](const QDBusPendingReply<QDBusVariant> &reply) {
        if (reply.isError())
            appearanceLog.info(u"The desktop does not say what it prefers: "_s + reply.error().message());
        else
            take(reply.value().variant());
    });
}

void PortalColorScheme::take(QVariant value)
{
    // Read wraps the value twice.
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    const uint raw = value.toUInt();
    const Preference preference = raw > uint(Preference::Light) ? Preference::None : Preference(raw);
    if (preference == m_preference) return;
    m_preference = preference;
    if (onChanged) onChanged(preference);
}
