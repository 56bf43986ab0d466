#include "nlp/Grammar.h"
#include "nlp/NLPNativeTitleParser.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <array>
#include <string>

namespace {

const std::wstring base = L"2026-11-18T10:00:00";

// About sixty characters each: half with a date, half without, as people type them.
const std::array<std::wstring, 8> englishTitles{
    L"Call the venue tomorrow 5pm about the seating plan for forty",
    L"Rewrite the introduction of the report and send it to editing",
    L"Water the plants on the balcony every monday and thursday 8am",
    L"Compare three offers for the new office chairs and pick one..",
    L"Book flights for the spring trip before Oct 15 with seat choice",
    L"Update router firmware to version 2.10.4 and note the password",
    L"Stand-up with the design team next friday from 9:30 to 10:15am",
    L"Buy 12 eggs, 2 bottles of milk, a sun cream and some dark bread",
};

const std::array<std::wstring, 4> chineseTitles{
    L"明天下午5点给会议中心打电话确认座位安排，提前10分钟提醒我",
    L"把报告的引言部分重新写一遍然后发给编辑部的同事们看看",
    L"每周一和周四早上8点给阳台上的花浇水，顺便检查一下水管",
    L"比较三家公司的办公椅报价，选一家性价比最好的下订单购买",
};

template <std::size_t Count>
void parseTitles(benchmark::State &state, const std::array<std::wstring, Count> &titles,
                 const std::wstring &language)
{
    const NLPNativeTitleParser parser;
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(parser.parse(titles[next], base, true, language));
        next = (next + 1) % Count;
    }
}

// Before any other: the tables are made once.
void tables(benchmark::State &state)
{
    const std::size_t before = mallinfo2().uordblks;
    for (auto _ : state)
        for (const wchar_t *language : {L"en", L"zh"})
            benchmark::DoNotOptimize(&nlp::Grammar::forLanguage(language));
    state.counters["KB"] = double(mallinfo2().uordblks - before) / 1024;
}

void englishTitle(benchmark::State &state) { parseTitles(state, englishTitles, L"en"); }

void chineseTitle(benchmark::State &state) { parseTitles(state, chineseTitles, L"zh"); }

void titleOfOneWordRepeated(benchmark::State &state, const std::wstring &word)
{
    const NLPNativeTitleParser parser;
    std::wstring title;
    while (title.size() < std::size_t(state.range(0)))
        title += word;
    for (auto _ : state)
        benchmark::DoNotOptimize(parser.parse(title, base, true, L"zh"));
    state.SetComplexityN(state.range(0));
}

// Words that begin many rules, lists that go on, signs that open and never close.
void longTitle(benchmark::State &state, const wchar_t *word) { titleOfOneWordRepeated(state, word); }

} // namespace

BENCHMARK(tables)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(englishTitle);
BENCHMARK(chineseTitle);
BENCHMARK_CAPTURE(longTitle, words, L"word ")->Range(1000, 100000)->Complexity();
BENCHMARK_CAPTURE(longTitle, dates, L"every monday, tuesday and ")->Range(1000, 100000)->Complexity();
BENCHMARK_CAPTURE(longTitle, numbers, L"5 ")->Range(1000, 100000)->Complexity();
BENCHMARK_CAPTURE(longTitle, ideographs, L"每周一、三、")->Range(1000, 100000)->Complexity();
BENCHMARK_CAPTURE(longTitle, marks, L"「\"")->Range(1000, 100000)->Complexity();
