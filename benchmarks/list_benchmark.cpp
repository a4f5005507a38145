// The list of 100,000 models: sorting by each column, and filtering.
#include <benchmark/benchmark.h>

#include "shell/list_filter.h"
#include "shell/state.h"

namespace corvane {
namespace {

constexpr int kModels = 100'000;

// Names as a ship has them, most of them with the same beginning; positions all over the ship.
void MakeRows() {
    shell.database.path = L"ship.ve2";
    shell.database.bsd.FrameZoneCount = 1;
    shell.database.bsd.FrameNumbers(1) = 400;
    shell.database.bsd.ZoneSpacing(1) = 0.8F;
    shell.database.rows.clear();
    for (int i = 0; i < kModels; ++i) {
        const int mixed = static_cast<int>(int64_t{i} * 48'271 % kModels);
        ModelRow row;
        row.name = L"Transverse section, hold " + std::to_wstring(mixed % 9) + L", frame " +
                   std::to_wstring(mixed);
        row.kind = static_cast<ModelKind>(mixed % 3);
        row.type = KindName(row.kind);
        row.x_m = static_cast<float>(mixed) / 321;
        row.x = L"0";
        row.tag = i + 1;
        shell.database.rows.push_back(row);
    }
    FillInFrames(shell.database.bsd, shell.database.rows);
}

void SortListBy(benchmark::State& state) {
    MakeRows();
    SetListFilter(L"");
    SetListOrder({static_cast<ListColumn>(state.range(0)), state.range(1) != 0});
    for (auto step : state) ArrangeLines();
    if (LineCount() != kModels) state.SkipWithError("models are missing");
}

void FilterListBy(benchmark::State& state) {
    static constexpr const wchar_t* kFilters[] = {L"", L"hold 7", L"bhd fr 121", L"x>100 x<=150",
                                                  L"section frame 99"};
    MakeRows();
    SetListFilter(kFilters[state.range(0)]);
    SetListOrder({});
    for (auto step : state) ArrangeLines();
    state.counters["shown"] = LineCount();
}

void FramesOfList(benchmark::State& state) {
    MakeRows();
    for (auto step : state) FillInFrames(shell.database.bsd, shell.database.rows);
}

BENCHMARK(SortListBy)->ArgsProduct({{0, 1, 2, 3, 4}, {0, 1}})->Unit(benchmark::kMillisecond);
BENCHMARK(FilterListBy)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);
BENCHMARK(FramesOfList)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvane
