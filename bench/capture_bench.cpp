#include "capture/KWNativeParser.h"
#include "capture/KWTextEntity.h"
#include "capture/TitleRecognizer.h"
#include "capture/TokenScanner.h"
#include "corvexkit/time/SystemClock.h"

#include <benchmark/benchmark.h>

#include <QLocale>

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
    return {{}, {}, {}, ListNames{lists}};
}

SystemClock &systemClock()
{
    static SystemClock clock{CXTimeZone::named(u"Europe/Berlin"_s)};
    return clock;
}

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

} // namespace
