#include "calendar/ics/IcsZones.h"

#include "calendar/ics/IcsComponent.h"
#include "calendar/ics/IcsObservances.h"

#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace {

// "Europe/Berlin", or something before it: "/example.org/2030/Europe/Berlin".
std::optional<CXTimeZone> zoneAtEndOf(const QString &name)
{
    const QStringList parts = name.split(u'/', Qt::SkipEmptyParts);
    for (qsizetype count = std::min<qsizetype>(parts.size(), 3); count > 0; --count) {
        const QString tail = parts.last(count).join(u'/');
        if (tail.contains(u'.') || (count == 1 && parts.size() > 1)) continue;
        if (const auto zone = CXTimeZone::named(tail)) return zone;
    }
    return std::nullopt;
}

std::optional<CXTimeZone> zoneNamed(const QString &name)
{
    if (const auto zone = zoneAtEndOf(name)) return zone;
    const QByteArray iana = QTimeZone::windowsIdToDefaultIanaId(name.toUtf8());
    return iana.isEmpty() ? std::nullopt : CXTimeZone::named(QString::fromLatin1(iana));
}

} // namespace

IcsZones::IcsZones(const std::vector<QByteArray> &components)
{
    for (const QByteArray &each : components) {
        if (m_described.size() >= mostNames) break;
        const auto component = IcsComponent::parse(each);
        if (!component) continue;
        QString name;
        QString place;
        component->forEachProperty([&](icalproperty &property) {
            const QLatin1StringView kind{icalproperty_get_property_name(&property)};
            if (kind == "TZID"_L1) name = icsText(property).value_or(name);
            if (kind == "X-LIC-LOCATION"_L1) place = icsText(property).value_or(place);
        });
        std::optional<CXTimeZone> zone = zoneNamed(place);
        if (!zone) zone = zoneOfObservances(*component);
        if (zone) m_described.insert(name, *zone);
    }
}

std::optional<CXTimeZone> IcsZones::zone(const QString &name) const
{
    const auto known = m_known.constFind(name);
    if (known != m_known.cend()) return *known;
    if (m_known.size() >= mostNames) return std::nullopt;
    std::optional<CXTimeZone> zone = zoneNamed(name);
    const auto described = m_described.constFind(name);
    if (!zone && described != m_described.cend()) zone = *described;
    m_known.insert(name, zone);
    return zone;
}
