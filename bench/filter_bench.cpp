// What a filter expression costs an entry: over a million of them in memory, compiled, and over
// fewer with the text parsed anew for each. Nanoseconds an entry are the time by the number of
// entries, and the reciprocal of items_per_second.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "foundation/file_name.h"
#include "panels/entry_array.h"
#include "panels/filter_compiled.h"
#include "panels/filter_expression.h"

namespace zt {
namespace {

constexpr int kEntries = 1000000;
constexpr int kParsedAnew = 10000;

// As a directory gives them: names of words and numbers, sizes and dates of all kinds.
const EntryArray& Entries() {
    static const std::unique_ptr<EntryArray> entries = [] {
        auto made = std::make_unique<EntryArray>();
        const char* words[] = {"report", "IMG_", "Main", "übung", "_draft", "файл", "a"};
        const char* endings[] = {".txt", ".JPEG", ".txt", ".tar.gz", ""};
        uint32_t mixed = 1;
        for (int i = 0; i < kEntries; i++) {
            mixed = mixed * 1664525 + 1013904223;
            const std::string name = words[mixed >> 16 & 3] + std::to_string(mixed >> 4) +
                                     words[i % 7] + endings[(mixed >> 20) % 5];
            const OwnedEntry e(NewEntry(NameFromBytes(name.c_str()).c_str()));
            e->size = mixed >> 12;
            e->time.seconds = 1000000000 + (mixed >> 2);
            e->mode = 0100644;
            e->uid = static_cast<uint16_t>(mixed >> 29);
            if (!made->Append(*e)) abort();
        }
        return made;
    }();
    return *entries;
}

void Compiled(benchmark::State& state, const char* expression) {
    const EntryArray& entries = Entries();
    int64_t hits = 0;
    for (auto _ : state) {
        CompiledFilter filter(expression);
        hits = 0;
        for (int i = 0; i < kEntries; i++)
            hits += filter.Evaluate(*entries.At(i));
    }
    state.SetItemsProcessed(state.iterations() * kEntries);
    state.counters["hits"] = static_cast<double>(hits);
}

void ParsedAnew(benchmark::State& state, const wchar_t* expression) {
    const EntryArray& entries = Entries();
    for (auto _ : state) {
        FilterEvaluator evaluator;
        for (int i = 0; i < kParsedAnew; i++)
            benchmark::DoNotOptimize(EvaluateFilter(evaluator, expression, *entries.At(i)));
    }
    state.SetItemsProcessed(state.iterations() * kParsedAnew);
}

BENCHMARK_CAPTURE(Compiled, everything, "*")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Compiled, mask_and_size, "*.txt & %size>1k")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Compiled, two_stars, "*a*.txt")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Compiled, sets, "*[a-n].{txt,jpeg}")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Compiled, age, "%age<7d")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Compiled, date, "%date>6/15/12")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Compiled, owner, "%owner=root")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Compiled, rights, "%perm=RW")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Compiled, file, "%timestamp>@/etc/passwd")->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(ParsedAnew, mask_and_size, L"*.txt & %size>1k")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ParsedAnew, date, L"%date>6/15/12")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ParsedAnew, owner, L"%owner=root")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zt

BENCHMARK_MAIN();
