#include "LibicalDifferences.h"
#include "LibicalExpansion.h"
#include "OccurrenceText.h"
#include "RandomRules.h"
#include "corvexkit/recurrence/CXRecurrenceAssistant.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

using Assistant = CXRecurrenceAssistant;
using Frequency = CXRecurrenceRule::Frequency;

// In which a rule must occur again.
constexpr days longest{1200};

struct Comparison {
    std::vector<Instant> ours;
    std::vector<Instant> theirs;
};

// As libical reads it the way it is meant: every value once, and a last day with all its hours.
QString textForLibical(CXRecurrenceRule rule)
{
    if (rule.until)
        if (const Day *day = std::get_if<Day>(&*rule.until))
            rule.until = LocalTime{*day + days{1} - seconds{1}};
    return rule.toIcal().sliced(6);
}

std::vector<Instant> within(std::vector<Instant> instants, Instant from, Instant to)
{
    std::erase_if(instants, [=](Instant instant) { return instant < from || instant > to; });
    return instants;
}

std::optional<Instant> nextWithin(const CXRecurringObject &object, Instant from, days span)
{
    const auto next =
        Assistant::calendar_occurrenceDatesForRecurringObject(object, from, from + span, true, 1);
    return next.empty() ? std::nullopt : std::optional{next.front()};
}

// What libical yields on the clock on the wall, as instants of the object's zone. Nothing when it refuses.
std::optional<Comparison> compare(const CXRecurringObject &object, Instant from, Instant to)
{
    constexpr std::size_t most = 400;
    const CXTimeZone &zone = object.timeZone;
    const QString rule = textForLibical(*CXRecurrenceRule::parse(object.recurrenceRuleString));
    const auto times =
        libicalOccurrences(rule, zone.toLocal(*object.startDate), zone.toLocal(to) + days{1}, most);
    if (!times) return {};
    std::vector<Instant> instants;
    for (const LocalTime time : *times)
        instants.push_back(zone.toInstant(time));
    // What a gap moves may stand behind readings that were cut.
    if (times->size() == most) {
        const CXTimeZone::Resolution last = zone.resolve(times->back());
        to = std::min(to, last.transition.value_or(last.before));
    }
    std::ranges::sort(instants);
    instants.erase(std::unique(instants.begin(), instants.end()), instants.end());
    return Comparison{.ours = Assistant::calendar_occurrenceDatesForRecurringObject(object, from, to, true),
                      .theirs = within(instants, from, to)};
}

QString localText(const std::vector<Instant> &instants, const CXTimeZone &zone)
{
    std::vector<LocalTime> times;
    for (const Instant instant : instants)
        times.push_back(zone.toLocal(instant));
    return joined(times);
}

} // namespace

/// Another reader of RFC 5545, over random rules, zones and windows. Where it must differ says
/// libicalDifference(). ORVANE_SEED begins elsewhere.
class LibicalComparison_test : public QObject {
    Q_OBJECT

    // An object whose rule yields its start, and more. Nothing where that takes long: below days libical
    // looks for the next occurrence step by step, through centuries when there is none.
    static std::optional<CXRecurringObject> objectOf(RandomRules &random, bool isUsual)
    {
        static const QStringList zones{u"America/New_York"_s, u"Australia/Lord_Howe"_s, u"Europe/Berlin"_s,
                                       u"Pacific/Chatham"_s, u"UTC"_s};
        CXRecurringObject object;
        object.recurrenceRuleString = isUsual ? random.usualRule() : random.rule();
        if (!isUsual && random.chance(20))
            object.recurrenceRuleString += random.chance(50) ? u";SKIP=FORWARD" : u";SKIP=BACKWARD";
        object.startDate = Instant{random.start().time_since_epoch()};
        const auto first = nextWithin(object, *object.startDate + 1ms, longest);
        if (!first || !nextWithin(object, *first + longest, longest)) return {};
        const LocalTime start{first->time_since_epoch()};
        object.recurrenceRuleString += random.end(start);
        object.timeZone = *CXTimeZone::named(zones[random.number(0, int(zones.size()) - 1)]);
        object.startDate = object.timeZone.toInstant(start);
        if (object.timeZone.toLocal(*object.startDate) != start) return {}; // in a gap
        return object;
    }

    // Begins and ends at or beside occurrences.
    static std::pair<Instant, Instant> windowOf(const CXRecurringObject &object, RandomRules &random)
    {
        const auto some = Assistant::calendar_occurrenceDatesForRecurringObject(
            object, *object.startDate, *object.startDate + longest, true, 80);
        const auto any = [&] {
            const Instant occurrence = some[std::size_t(random.number(0, int(some.size()) - 1))];
            return occurrence + seconds{random.number(-1, 1)};
        };
        const auto [from, to] = std::minmax({any(), any()});
        return {from, random.chance(30) ? to + longest / 4 : to};
    }

private Q_SLOTS:
    void agreesOnRandomRules_data()
    {
        QTest::addColumn<unsigned>("seed");
        QTest::addColumn<bool>("isUsual");
        const unsigned first = qEnvironmentVariableIsSet("ORVANE_SEED")
                                   ? qEnvironmentVariable("ORVANE_SEED").toUInt()
                                   : 20300501;
        for (unsigned i = 0; i < 10; ++i) {
            const unsigned seed = first + i * 10'000;
            QTest::addRow("%s rules from seed %u on", i < 5 ? "usual" : "any", seed) << seed << (i < 5);
        }
    }
    void agreesOnRandomRules()
    {
        QFETCH(unsigned, seed);
        QFETCH(bool, isUsual);
        int compared = 0;
        for (const unsigned last = seed + 10'000; seed < last; ++seed) {
            RandomRules random{RandomRules::Kinds::All, seed};
            const std::optional<CXRecurringObject> object = objectOf(random, isUsual);
            if (!object) continue;
            CXRecurrenceRule rule = *CXRecurrenceRule::parse(object->recurrenceRuleString);
            if (!rule.weekStart) rule.weekStart = Monday;
            if (libicalDifference(rule)) continue;
            const auto [from, to] = windowOf(*object, random);
            const std::optional<Comparison> both = compare(*object, from, to);
            if (!both || both->ours != both->theirs)
                QFAIL(qPrintable(u"seed %1: %2 from %3 in %4\nyields %5\nnot    %6"_s.arg(seed).arg(
                    object->recurrenceRuleString,
                    TimeText::fromLocalTime(object->timeZone.toLocal(*object->startDate)),
                    object->timeZone.identifier(),
                    localText(both ? both->ours : std::vector<Instant>{}, object->timeZone),
                    both ? localText(both->theirs, object->timeZone) : u"refused"_s)));
            ++compared;
        }
        QVERIFY2(compared > (isUsual ? 9'500 : 4'000), qPrintable(QString::number(compared)));
    }

    // Each difference is one: without it the rules of the table would not be left out.
    void differsWhereItIsSaid_data() { addCaseRows("recurrence/libical.txt", 3); }
    void differsWhereItIsSaid()
    {
        QFETCH(QStringList, cells);
        CXRecurringObject object;
        object.recurrenceRuleString = cells[0];
        object.startDate = Instant{TimeText::toLocalTime(cells[1]).value().time_since_epoch()};
        CXRecurrenceRule rule = *CXRecurrenceRule::parse(cells[0]);
        if (!rule.weekStart) rule.weekStart = Monday;
        QCOMPARE(QString::fromLatin1(libicalDifference(rule)), cells[2]);
        const auto both = compare(object, Instant::min(), *object.startDate + days{4000});
        QVERIFY(!both || both->ours != both->theirs);
    }
};

ORVANE_TEST(LibicalComparison_test)
#include "LibicalComparison_test.moc"
