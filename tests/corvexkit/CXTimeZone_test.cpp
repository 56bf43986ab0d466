#include "corvexkit/time/CXTimeZone.h"

#include "corvexkit/time/TimeText.h"
#include "corvexkit/time/ZoneFile.h"
#include "corvexkit/time/ZoneTable.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <date/tz.h>

#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

using Kind = CXTimeZone::Resolution::Kind;

QByteArray zoneFileBytes(const std::string &name)
{
    QFile file{u"/usr/share/zoneinfo/"_s + QString::fromStdString(name)};
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray{};
}

std::string_view view(const QByteArray &bytes) { return {bytes.data(), std::size_t(bytes.size())}; }

Instant instantOf(date::sys_seconds time) { return Instant{time.time_since_epoch()}; }

Kind kindOf(const date::local_info &info)
{
    return info.result == date::local_info::unique        ? Kind::Unique
           : info.result == date::local_info::nonexistent ? Kind::Gap
                                                          : Kind::Fold;
}

// The first difference between this zone and the reference from `first` to `last`, as text.
QString difference(const ZoneTable &zone, const date::time_zone &reference, date::sys_seconds first,
                   date::sys_seconds last)
{
    for (auto moment = first; moment < last;) {
        const auto info = reference.get_info(moment);
        moment = info.end;
        const auto begin = std::max(info.begin, first);
        const auto middle = begin + (std::min(info.end, last) - begin) / 2;
        for (const auto probe : {begin - 1s, begin, begin + 1s, middle}) {
            if (zone.offsetAt(instantOf(probe)) != reference.get_info(probe).offset)
                return TimeText::fromInstant(instantOf(probe));
            // Readings on both sides of a change, even of a whole day, and in it.
            for (const auto shift : {-24h, -1h, 0h, 1h, 24h}) {
                const date::local_seconds local{probe.time_since_epoch() + info.offset + shift};
                const auto expected = reference.get_info(local);
                const auto got = zone.resolve(LocalTime{local.time_since_epoch()});
                if (got.kind != kindOf(expected) ||
                    got.before.time_since_epoch() != local.time_since_epoch() - expected.first.offset)
                    return TimeText::fromLocalTime(LocalTime{local.time_since_epoch()});
            }
        }
    }
    return {};
}

} // namespace

class CXTimeZone_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void resolvesReadings_data() { addCaseRows("corvexkit/zones.txt", 5); }
    void resolvesReadings()
    {
        QFETCH(QStringList, cells);
        const auto zone = CXTimeZone::named(cells[0]);
        QVERIFY(zone);
        const LocalTime local = *TimeText::toLocalTime(cells[1]);
        const CXTimeZone::Resolution got = zone->resolve(local);
        const QStringList names{u"once"_s, u"gap"_s, u"fold"_s};
        QCOMPARE(names.at(int(got.kind)), cells[2]);
        QCOMPARE(TimeText::fromInstant(got.before), cells[3]);
        QCOMPARE(TimeText::fromInstant(got.after), cells[4]);
        QCOMPARE(zone->toInstant(local), got.before);
        const auto gap = got.kind == Kind::Gap ? got.before - got.after : 0ms;
        QCOMPARE(zone->toLocal(got.before), local + gap);
        QCOMPARE(zone->toLocal(got.after), local - gap);
        QCOMPARE(got.transition.has_value(), got.kind != Kind::Unique);
        if (!got.transition) return;
        QVERIFY(zone->offsetAt(*got.transition) != zone->offsetAt(*got.transition - 1ms));
        QVERIFY(abs(*got.transition - got.before) <= 24h);
    }

    void beginsDays_data() { addCaseRows("corvexkit/days.txt", 3); }
    void beginsDays()
    {
        QFETCH(QStringList, cells);
        const CXTimeZone zone = *CXTimeZone::named(cells[0]);
        const Day day = *TimeText::toDay(cells[1]);
        const Instant start = zone.startOfDay(day);
        QCOMPARE(TimeText::fromInstant(start), cells[2]);
        QVERIFY(zone.dayOf(start) >= day);
        QVERIFY(zone.dayOf(start - 1ms) < day);
    }

    // The years that the zone files list themselves, against another reader of the same files. A closing
    // rule, taken alone, must give the last of them too; but in Palestine those still follow the months of
    // the moon.
    void agreesWithTheReferenceInEveryZone()
    {
        const auto yearBegin = [](int year) { return date::sys_days{date::year{year} / 1 / 1}; };
        QSet<QByteArray> seen;
        int rules = 0;
        for (const date::time_zone &reference : date::get_tzdb().zones) {
            const QByteArray bytes = zoneFileBytes(reference.name());
            if (seen.contains(bytes)) continue; // another name of the same zone
            seen.insert(bytes);
            const auto file = ZoneFile::parse(view(bytes));
            const auto table = ZoneTable::fromFile({}, view(bytes));
            QVERIFY2(file && table, reference.name().c_str());
            QString where = difference(*table, reference, yearBegin(1900), yearBegin(2037));
            if (file->rule.find(',') != std::string::npos && !file->rule.starts_with("EET-2EEST,M3.4.4/50")) {
                const auto rule = ZoneRule::parse(file->rule);
                QVERIFY2(rule, file->rule.c_str());
                const ZoneTable alone{{}, rule->standardOffset(), {}, rule};
                where += difference(alone, reference, yearBegin(2033), yearBegin(2037));
                ++rules;
            }
            QVERIFY2(where.isEmpty(), (reference.name() + " at " + where.toStdString()).c_str());
        }
        QVERIFY(rules > 20);
    }

    void knowsWhatIsNoZone()
    {
        QVERIFY(!CXTimeZone::named({}));
        for (const CaseRow &row : readCases("corvexkit/no-zones.txt", 1))
            for (int again = 0; again < 2; ++again)
                QVERIFY2(!CXTimeZone::named(row.cells.first()), row.where.constData());
    }

    void refusesBrokenFiles()
    {
        const QByteArray whole = zoneFileBytes("America/New_York");
        QVERIFY(ZoneFile::parse(view(whole)));
        for (qsizetype size = 0; size < whole.size(); ++size)
            QVERIFY2(!ZoneFile::parse(view(whole).substr(0, std::size_t(size))),
                     qPrintable(QString::number(size)));
        // No byte, however wrong, leads out of the tables.
        for (qsizetype i = 0; i < whole.size(); i += i < 100 ? 1 : 17) {
            for (const char wrong : {'\0', '\x7f', '\xff'}) {
                QByteArray bytes = whole;
                bytes[i] = wrong;
                const auto table = ZoneTable::fromFile({}, view(bytes));
                if (!table) continue;
                table->offsetAt(Instant::min());
                table->resolve(LocalTime{sys_days{2030y / 3 / 10}.time_since_epoch()});
                table->offsetAt(Instant::max());
            }
        }
    }

    void readsItsOwnZoneFolder()
    {
        const QTemporaryDir folder;
        QVERIFY(QFile::copy(u"/usr/share/zoneinfo/Asia/Tokyo"_s, folder.filePath(u"Own"_s)));
        qputenv("TZDIR", QFile::encodeName(folder.path()));
        const auto zone = CXTimeZone::named(u"Own"_s);
        qunsetenv("TZDIR");
        QVERIFY(zone);
        QCOMPARE(zone->offsetAt(Instant{}), 9h);
    }

    void followsTheSystem_data() { addCaseRows("corvexkit/system-zones.txt", 2); }
    void followsTheSystem()
    {
        QFETCH(QStringList, cells);
        qputenv("TZ", cells[0].toLatin1());
        QCOMPARE(CXTimeZone::systemIdentifier(), cells[1]);
        QCOMPARE(CXTimeZone::system().identifier(), cells[1]);
        qputenv("TZ", "UTC");
    }

    void isAskedOnManyThreads()
    {
        std::atomic<int> wrong = 0;
        {
            std::vector<std::jthread> threads;
            for (int i = 0; i < 4; ++i)
                threads.emplace_back([&wrong] {
                    for (const char16_t *name :
                         {u"Asia/Seoul", u"Asia/Manila", u"Africa/Lagos", u"Nowhere/Else"}) {
                        const auto zone = CXTimeZone::named(QString::fromUtf16(name));
                        if (zone && zone->toInstant(zone->toLocal(Instant{})) != Instant{}) ++wrong;
                    }
                });
        }
        QCOMPARE(wrong, 0);
    }
};

ORVANE_TEST(CXTimeZone_test)
#include "CXTimeZone_test.moc"
