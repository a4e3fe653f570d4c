// Measures a keyed collection: the time per item for adding, finding by key and clearing.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "controlkit/fast_collection.h"
#include "controlkit/sort.h"

namespace velvox::testing {
namespace {

std::vector<std::string> keys(std::int64_t count) {
    std::vector<std::string> made;
    for (std::int64_t i = 0; i < count; ++i) made.push_back("item " + std::to_string(i));
    return made;
}

void addFindAndClear(benchmark::State& state) {
    const std::vector<std::string> names = keys(state.range(0));
    clsFastCollection<int> list;
    for (auto _ : state) {
        for (const std::string& name : names) list.Add(1, name);
        int sum = 0;
        for (const std::string& name : names) sum += list.Item(name);
        for (std::size_t place = 1; place <= list.Count(); ++place) sum += list.Item(place);
        benchmark::DoNotOptimize(sum);
        list.Clear();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void sortNaturally(benchmark::State& state) {
    clsFastCollection<std::string> list;
    for (const std::string& name : keys(state.range(0))) list.Add(name);
    std::size_t factor = 1;
    for (auto _ : state) {
        state.PauseTiming();
        // Gives every item a new name by a fixed rule, so that each iteration sorts a different
        // order.
        factor = factor * 48271 % 2147483647;
        std::size_t i = factor;
        for (std::string& item : list) item = "item " + std::to_string((i += factor) % 1000003);
        state.ResumeTiming();
        clsSort::SortList(list,
                          [](const auto& a, const auto& b) { return compareNaturally(a, b) < 0; });
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(addFindAndClear)->RangeMultiplier(10)->Range(10000, 1000000);
BENCHMARK(sortNaturally)->RangeMultiplier(10)->Range(10000, 1000000);

}  // namespace
}  // namespace velvox::testing
