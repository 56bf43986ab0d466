#include "Account.h"
#include "capture/KWNativeParser.h"
#include "capture/KWTextEntity.h"
#include "capture/NewTaskCandidates.h"
#include "capture/NewTaskService.h"
#include "capture/TitleRecognizer.h"
#include "capture/TokenScanner.h"
#include "model/records/KWProjectGroup.h"
#include "nlp/NLPNativeTitleParser.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QLocale>

#include <algorithm>
#include <chrono>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

// About 60 characters each, as people type them.
const QStringList titles{
    u"Call the venue tomorrow 5pm !high #errand ~Client launch now"_s,
    u"Prepare the slides for the quarterly review with the new team"_s,
    u"Pay the rent every month on the 1st, remind me 1 day before"_s,
    u"Buy milk, bread and eggs #shopping #weekend ~Home Office today"_s,
    u"Send the signed contract back to the bank by friday !medium ok"_s,
    u"Read https://example.org/articles/on-focus before the meeting"_s,
    u"Water the plants every 3 days at 8am, the big ones twice #home"_s,
    u"Book flights for the conference, compare 3 prices ~List 250 go"_s,
};

RecognitionSettings settings()
{
    QList<KWProjectModel> lists;
    for (int i = 0; i < 1000; ++i) {
        KWProjectModel list;
        list.sid = QString::number(i);
        list.name = i == 0 ? u"Home Office"_s : u"List %1"_s.arg(i);
        lists.append(list);
    }
    return {{}, {}, {}, NameIndex::ofLists(lists)};
}

SystemClock &systemClock()
{
    static SystemClock clock{CXTimeZone::named(u"Europe/Berlin"_s)};
    return clock;
}

// Two thousand titles in English and Chinese, with and without dates, as the tests have them.
const QStringList &mixedTitles()
{
    static const QStringList mixed = [] {
        QStringList typed;
        for (const char *name : {"english", "chinese"}) {
            QFile file{QStringLiteral(ORVANE_TITLES "/%1.txt").arg(QLatin1StringView{name})};
            if (!file.open(QIODevice::ReadOnly)) qFatal("%s cannot be read", qUtf8Printable(file.fileName()));
            for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n'))
                if (line.contains(u'|') && !line.startsWith(u'#')) typed << line.section(u" | "_s, 0, 0);
        }
        while (typed.size() < 2000)
            typed += typed.first(std::min<qsizetype>(2000 - typed.size(), typed.size()));
        return typed.first(2000);
    }();
    return mixed;
}

// The time that half the titles stay below, warm.
template <typename Reading>
void medianOfMixedTitles(benchmark::State &state, Reading read)
{
    using namespace std::chrono;
    QLocale::setDefault(QLocale{QLocale::Chinese, QLocale::China}); // English is understood beside it
    std::vector<double> times(std::size_t(mixedTitles().size()), 1e9);
    for (auto _ : state) {
        for (std::size_t i = 0; i < times.size(); ++i) {
            const auto start = steady_clock::now();
            benchmark::DoNotOptimize(read(i));
            times[i] = std::min(times[i], duration<double, std::micro>(steady_clock::now() - start).count());
        }
    }
    std::sort(times.begin(), times.end());
    state.counters["median_us"] = times[times.size() / 2];
    state.counters["p99_us"] = times[times.size() * 99 / 100];
    state.counters["worst_us"] = times.back();
}

// Before any other: the tables are made on the way.
void firstTitle(benchmark::State &state)
{
    QLocale::setDefault(QLocale{QLocale::Chinese, QLocale::China});
    const RecognitionSettings all = settings();
    for (auto _ : state) {
        const TitleRecognizer recognizer{systemClock(), all};
        benchmark::DoNotOptimize(recognizer.recognize(u"明天下午3点开会 tomorrow 5pm"_s));
    }
}
BENCHMARK(firstTitle)->Iterations(1)->Unit(benchmark::kMillisecond);

void recognizeMixedTitles(benchmark::State &state)
{
    const TitleRecognizer recognizer{systemClock(), settings()};
    const QStringList &mixed = mixedTitles();
    medianOfMixedTitles(state, [&](std::size_t i) { return recognizer.recognize(mixed[qsizetype(i)]); });
}
BENCHMARK(recognizeMixedTitles)->Iterations(20)->Unit(benchmark::kMillisecond);

void parseMixedTitles(benchmark::State &state)
{
    std::vector<std::wstring> wide;
    for (const QString &title : mixedTitles())
        wide.push_back(title.toStdWString());
    const NLPNativeTitleParser parser;
    medianOfMixedTitles(
        state, [&](std::size_t i) { return parser.parse(wide[i], L"2026-11-18T10:00:00", true, L"zh"); });
}
BENCHMARK(parseMixedTitles)->Iterations(20)->Unit(benchmark::kMillisecond);

void recognizeTitle(benchmark::State &state)
{
    QLocale::setDefault(QLocale{QLocale::English, QLocale::UnitedStates});
    const TitleRecognizer recognizer{systemClock(), settings()};
    qsizetype next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(recognizer.recognize(titles[next]));
        next = (next + 1) % titles.size();
    }
}
BENCHMARK(recognizeTitle);

void recognizeEachTitle(benchmark::State &state)
{
    const TitleRecognizer recognizer{systemClock(), settings()};
    const QString &title = titles[state.range(0)];
    state.SetLabel(title.toStdString());
    for (auto _ : state)
        benchmark::DoNotOptimize(recognizer.recognize(title));
}
BENCHMARK(recognizeEachTitle)->DenseRange(0, titles.size() - 1);

void parseDate(benchmark::State &state)
{
    const KWSmartTimeModel times;
    const KWTaskDefaultConfiguration defaults;
    qsizetype next = 0;
    for (auto _ : state) {
        const QString &title = titles[next];
        benchmark::DoNotOptimize(KWNativeParser::parse(
            title, systemClock().now(), times.firstWeekday, times.morning, times.afternoon, times.evening,
            times.night, title, {}, {systemClock().zone(), defaults}));
        next = (next + 1) % titles.size();
    }
}
BENCHMARK(parseDate);

void scanTokens(benchmark::State &state)
{
    qsizetype next = 0;
    for (auto _ : state) {
        for (const TokenKind kind :
             {TokenKind::Tag, TokenKind::Priority, TokenKind::List, TokenKind::Assignee, TokenKind::Date})
            benchmark::DoNotOptimize(TokenScanner::scan(kind, titles[next]));
        next = (next + 1) % titles.size();
    }
}
BENCHMARK(scanTokens);

void recognizeLongTitle(benchmark::State &state)
{
    const TitleRecognizer recognizer{systemClock(), settings()};
    QString title = titles.join(u' ');
    title = title.repeated(100'000 / title.size());
    for (auto _ : state)
        benchmark::DoNotOptimize(recognizer.recognize(title));
}
BENCHMARK(recognizeLongTitle)->Unit(benchmark::kMillisecond);

// 100,000 characters of one thing again and again.
void recognizeRepeated(benchmark::State &state, const char16_t *text)
{
    const TitleRecognizer recognizer{systemClock(), settings()};
    const QString piece = QString::fromUtf16(text);
    const QString title = piece.repeated(100'000 / piece.size());
    for (auto _ : state)
        benchmark::DoNotOptimize(recognizer.recognize(title));
}
BENCHMARK_CAPTURE(recognizeRepeated, tags, u"#a ")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(recognizeRepeated, tagsThatTouch, u"#a")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(recognizeRepeated, priorities, u"!high ")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(recognizeRepeated, lists, u"~a  ")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(recognizeRepeated, dates, u"tomorrow 5pm ")->Unit(benchmark::kMillisecond);

/// 1,000 lists in 20 folders, and 2,000 tags.
struct LargeAccount : Account {
    LargeAccount()
    {
        fill([this](ObjectContext &context) {
            insertTags(2000, context);
            const QStringList lists = insertLists(1000, context);
            for (int i = 0; i < 20; ++i) {
                KWProjectGroupModel group;
                group.sid = u"folder%1"_s.arg(i);
                group.userID = userID();
                context.insert<KWProjectGroup>(std::move(group));
            }
            for (int i = 0; i < lists.size(); ++i)
                context.find<KWProject>(lists[i])->set(&KWProjectModel::groupID, u"folder%1"_s.arg(i % 20));
        });
    }
};

void candidatesAtHand(benchmark::State &state)
{
    const LargeAccount account;
    NewTaskCandidates candidates{*account.kit};
    for (auto _ : state) {
        benchmark::DoNotOptimize(candidates.tags());
        benchmark::DoNotOptimize(candidates.lists({u"blocked"_s}));
    }
}
BENCHMARK(candidatesAtHand)->Unit(benchmark::kMicrosecond);

void candidatesReadAgain(benchmark::State &state)
{
    const LargeAccount account;
    for (auto _ : state) {
        NewTaskCandidates candidates{*account.kit};
        benchmark::DoNotOptimize(candidates.tags());
        benchmark::DoNotOptimize(candidates.lists());
    }
}
BENCHMARK(candidatesReadAgain)->Unit(benchmark::kMillisecond);

// Saved, and read by the main context.
void addThousandLines(benchmark::State &state)
{
    const LargeAccount account;
    NewTaskService service{*account.kit};
    NewTaskReferees referees{*account.kit};
    const QString lines = titles.join(u"\n"_s).append(u'\n').repeated(1000 / int(titles.size()));
    for (auto _ : state)
        if (!service.createMutilTask(lines, {}, referees)) std::abort();
}
BENCHMARK(addThousandLines)->Unit(benchmark::kMillisecond);

} // namespace
