// The inner loops that every name of a directory goes through: decoding, matching, comparing,
// sorting. Nanoseconds a name are the time divided by the number of names.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "foundation/file_name.h"
#include "foundation/wild_match.h"
#include "panels/entry.h"
#include "panels/entry_sorting.h"
#include "panels/panel_pair.h"
#include "panels/sort_key.h"

namespace zt {
namespace {

// Names as they come: words, numbers, capitals, some in other scripts.
std::vector<std::string> Names(int count) {
    const char* words[] = {"report", "IMG_", "Main", "übung", "_draft", "файл", "a"};
    std::vector<std::string> names;
    for (int i = 0; i < count; i++) {
        const long mixed = static_cast<long>(i) * 7919 % count;
        names.push_back(words[i % 7] + std::to_string(mixed) + (i % 3 ? ".txt" : ".JPEG"));
    }
    return names;
}

void DecodeNames(benchmark::State& state) {
    const std::vector<std::string> names = Names(1000);
    wchar_t buffer[256];
    for (auto _ : state) {
        for (const std::string& name : names) {
            benchmark::DoNotOptimize(NameFromBytes(name.c_str(), buffer));
        }
    }
    state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(DecodeNames);

void MatchMask(benchmark::State& state, const wchar_t* mask) {
    std::vector<Westring> names;
    for (const std::string& name : Names(1000))
        names.push_back(NameFromBytes(name.c_str()));
    for (auto _ : state) {
        for (const Westring& name : names) {
            benchmark::DoNotOptimize(WildMatchWide(mask, name.c_str()));
        }
    }
    state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK_CAPTURE(MatchMask, extension, L"*.txt");
BENCHMARK_CAPTURE(MatchMask, sets_and_stars, L"*[a-z]*0*.{txt,jpeg}");

void CompareNeighbours(benchmark::State& state) {
    std::vector<Westring> names;
    for (const std::string& name : Names(1000))
        names.push_back(NameFromBytes(name.c_str()));
    for (auto _ : state) {
        for (size_t i = 1; i < names.size(); i++) {
            benchmark::DoNotOptimize(
                CompareNames(names[i - 1].c_str(), names[i].c_str(), state.range(0) != 0));
        }
    }
    state.SetItemsProcessed(state.iterations() * 999);
}
BENCHMARK(CompareNeighbours)->ArgName("natural")->Arg(0)->Arg(1);

void SortByName(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    std::vector<entry*> entries;
    for (const std::string& name : Names(count)) {
        entry* e = NewEntry(NameFromBytes(name.c_str()).c_str());
        e->group = kGroupFile;
        entries.push_back(e);
    }
    PanelPair pair;
    const CPanel& panel = pair.panel[0];
    for (auto _ : state) {
        std::vector<entry*> work = entries;
        SortEntries(panel, 0, work.data(), count);
        benchmark::DoNotOptimize(work.data());
    }
    state.SetItemsProcessed(state.iterations() * count);
    for (entry* e : entries)
        FreeEntry(e);
}
BENCHMARK(SortByName)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zt

BENCHMARK_MAIN();
