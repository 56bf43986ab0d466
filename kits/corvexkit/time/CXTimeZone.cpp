#include "corvexkit/time/CXTimeZone.h"

#include "corvexkit/time/ZoneTable.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QTimeZone>

#include <algorithm>
#include <mutex>
#include <shared_mutex>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

QStringList zoneFolders()
{
    QStringList folders{u"/usr/share/zoneinfo"_s, u"/usr/lib/zoneinfo"_s, u"/etc/zoneinfo"_s};
    const QString own = qEnvironmentVariable("TZDIR");
    if (!own.isEmpty()) folders.prepend(QDir::cleanPath(own));
    return folders;
}

// Parts of letters, digits, "_", "+" and "-": nothing that leads out of the zone folder. The folders of
// the database's other editions, and its copy of the system's own zone, are no names of zones.
bool isZoneName(const QString &identifier)
{
    if (identifier.isEmpty() || identifier.size() > 255) return false;
    for (const QString &part : identifier.split(u'/')) {
        const bool allowed = std::ranges::all_of(part, [](QChar c) {
            return c.unicode() < 128 && (c.isLetterOrNumber() || c == u'_' || c == u'+' || c == u'-');
        });
        if (part.isEmpty() || !allowed) return false;
    }
    return !identifier.startsWith(u"posix/") && !identifier.startsWith(u"right/") &&
           identifier != u"localtime" && identifier != u"posixrules";
}

std::unique_ptr<ZoneTable> loadZoneFile(const QString &identifier)
{
    constexpr qint64 limit = 1'000'000; // real ones have some kilobytes
    for (const QString &folder : zoneFolders()) {
        QFile file{folder + u'/' + identifier};
        if (!file.open(QIODevice::ReadOnly)) continue;
        const QByteArray bytes = file.read(limit);
        if (auto table = ZoneTable::fromFile(identifier, {bytes.data(), std::size_t(bytes.size())}))
            return table;
    }
    return nullptr;
}

std::unique_ptr<ZoneTable> loadTable(const QString &identifier)
{
    if (isZoneName(identifier)) return loadZoneFile(identifier);
    // Only forms that no zone has as its name: "UTC+2" would mean the opposite of what people expect.
    if (!identifier.contains(u',') && !identifier.startsWith(u'<')) return nullptr;
    const std::optional<ZoneRule> rule = ZoneRule::parse(identifier.toStdString());
    if (!rule) return nullptr;
    return std::make_unique<ZoneTable>(identifier, rule->standardOffset(), std::vector<ZoneTransition>{},
                                       rule);
}

// Of every identifier ever asked for, unknown ones too: records repeat theirs thousands of times.
struct LoadedZones {
    std::shared_mutex mutex;
    QHash<QString, const ZoneTable *> tables;
};

LoadedZones &loadedZones()
{
    static LoadedZones &zones = *new LoadedZones; // zones outlive every static that holds one
    return zones;
}

const ZoneTable *tableOf(const QString &identifier)
{
    LoadedZones &zones = loadedZones();
    {
        const std::shared_lock reading{zones.mutex};
        const auto found = zones.tables.constFind(identifier);
        if (found != zones.tables.cend()) return *found;
    }
    const std::unique_lock writing{zones.mutex};
    const auto found = zones.tables.constFind(identifier);
    if (found != zones.tables.cend()) return *found;
    return *zones.tables.insert(identifier, loadTable(identifier).release());
}

} // namespace

CXTimeZone::CXTimeZone()
{
    static const ZoneTable &table = *new ZoneTable{u"UTC"_s, 0s};
    m_table = &table;
}

std::optional<CXTimeZone> CXTimeZone::named(const QString &identifier)
{
    const ZoneTable *table = tableOf(identifier);
    return table ? std::optional{CXTimeZone{table}} : std::nullopt;
}

QString CXTimeZone::systemIdentifier()
{
    QString identifier = QString::fromLocal8Bit(QTimeZone::systemTimeZoneId());
    for (const QString &folder : zoneFolders())
        if (identifier.startsWith(folder + u'/')) identifier.remove(0, folder.size() + 1);
    return tableOf(identifier) ? identifier : u"UTC"_s;
}

CXTimeZone CXTimeZone::system() { return named(systemIdentifier()).value_or(utc()); }

QString CXTimeZone::identifier() const { return m_table->identifier(); }

seconds CXTimeZone::offsetAt(Instant instant) const { return m_table->offsetAt(instant); }

CXTimeZone::Resolution CXTimeZone::resolve(LocalTime local) const { return m_table->resolve(local); }

std::optional<CXTimeZone::Stretch> CXTimeZone::stretchAround(LocalTime local) const
{
    return m_table->stretchAround(local);
}

Instant CXTimeZone::startOfDay(Day day) const
{
    const Resolution midnight = resolve(LocalTime{day});
    return midnight.kind == Resolution::Kind::Gap ? *midnight.transition : midnight.before;
}

bool CXTimeZone::operator==(const CXTimeZone &other) const
{
    return m_table == other.m_table || identifier() == other.identifier();
}
