#include "corvexkit/alarm/CXAlarmTrigger.h"
#include "corvexkit/log/CXLog.h"
#include "corvexkit/time/CXTimeZone.h"
#include "corvexkit/time/TimeText.h"
#include "corvexkit/time/ZoneTable.h"

#include <benchmark/benchmark.h>
#include <date/tz.h>

#include <QFile>

#include <random>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

// Instants from 2000 to 2035, in no order: as the dates of tasks come.
std::vector<Instant> someInstants()
{
    std::mt19937_64 random{1};
    std::uniform_int_distribution<std::int64_t> milliseconds{946'684'800'000, 2'051'222'400'000};
    std::vector<Instant> instants(4096);
    for (Instant &instant : instants)
        instant = Instant{std::chrono::milliseconds{milliseconds(random)}};
    return instants;
}

// Runs `convert` on one instant after the other.
template <class Convert>
void overInstants(benchmark::State &state, Convert convert)
{
    const std::vector<Instant> instants = someInstants();
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(convert(instants[i++ % instants.size()]));
}

CXTimeZone newYork() { return *CXTimeZone::named(u"America/New_York"_s); }

void zoneToLocal(benchmark::State &state)
{
    overInstants(state, [zone = newYork()](Instant instant) { return zone.toLocal(instant); });
}
BENCHMARK(zoneToLocal);

void zoneToInstant(benchmark::State &state)
{
    overInstants(state, [zone = newYork()](Instant instant) {
        return zone.toInstant(LocalTime{instant.time_since_epoch()});
    });
}
BENCHMARK(zoneToInstant);

void zoneToInstantIn2126(benchmark::State &state)
{
    overInstants(state, [zone = newYork()](Instant instant) {
        return zone.toInstant(LocalTime{instant.time_since_epoch() + days{36'525}});
    });
}
BENCHMARK(zoneToInstantIn2126);

void zoneStartOfDay(benchmark::State &state)
{
    overInstants(state, [zone = newYork()](Instant instant) { return zone.startOfDay(zone.dayOf(instant)); });
}
BENCHMARK(zoneStartOfDay);

void dateLibraryToInstant(benchmark::State &state)
{
    const date::time_zone *zone = date::locate_zone("America/New_York");
    overInstants(state, [zone](Instant instant) {
        return zone->to_sys(date::local_time<milliseconds>{instant.time_since_epoch()},
                            date::choose::earliest);
    });
}
BENCHMARK(dateLibraryToInstant);

void zoneByName(benchmark::State &state)
{
    const QString name = u"America/New_York"_s;
    for (auto _ : state)
        benchmark::DoNotOptimize(CXTimeZone::named(name));
}
BENCHMARK(zoneByName);

// What a process pays for its first zone, the file in the disk cache.
void zoneLoaded(benchmark::State &state)
{
    for (auto _ : state) {
        QFile file{u"/usr/share/zoneinfo/America/New_York"_s};
        if (!file.open(QIODevice::ReadOnly)) return state.SkipWithError("no zone file");
        const QByteArray bytes = file.readAll();
        benchmark::DoNotOptimize(ZoneTable::fromFile({}, {bytes.data(), std::size_t(bytes.size())}));
    }
}
BENCHMARK(zoneLoaded);

void instantWritten(benchmark::State &state)
{
    overInstants(state, [](Instant instant) { return TimeText::fromInstant(instant); });
}
BENCHMARK(instantWritten);

void instantRead(benchmark::State &state)
{
    const QString text = u"2030-05-01T09:00:00.123+02:00"_s;
    for (auto _ : state)
        benchmark::DoNotOptimize(TimeText::toInstant(text));
}
BENCHMARK(instantRead);

void triggerRead(benchmark::State &state)
{
    const QString text = u"TRIGGER:-P0DT15H0M0S"_s;
    for (auto _ : state)
        benchmark::DoNotOptimize(CXAlarmTrigger::triggerWithRepresentation(text, true));
}
BENCHMARK(triggerRead);

void logLineThatIsOff(benchmark::State &state)
{
    constexpr CXLogger logger{u"bench"};
    for (auto _ : state)
        logger.debug(u"nothing");
}
BENCHMARK(logLineThatIsOff);

} // namespace
