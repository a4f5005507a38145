// How the scans of a database grow with its size: 3, 30 and 290 MB.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <vector>

#include "benchmarks/measure.h"
#include "benchmarks/measured_database.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "database/section_block.h"
#include "platform/system.h"

namespace corvane {
namespace {

// The files of this run, made when they are first asked for and removed at the end.
struct SampleFiles {
    struct File {
        std::wstring path;
        int models = 0;
    };
    std::map<int64_t, File> files;

    ~SampleFiles() {
        for (const auto& [megabytes, file] : files) KillFile(file.path);
    }
    const File& OfSize(int64_t megabytes) {
        File& file = files[megabytes];
        if (file.path.empty()) {
            system::NewTemporaryName(system::TemporaryDirectory(), L"bench", file.path);
            file.models = benchmarks::MakeDatabase(file.path, megabytes * 1'000'000);
        }
        return file;
    }
};

const SampleFiles::File& Sample(benchmark::State& state) {
    static SampleFiles samples;
    const SampleFiles::File& file = samples.OfSize(state.range(0));
    if (file.models < 0) state.SkipWithError("the sample can't be written");
    return file;
}

void Report(benchmark::State& state) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * state.range(0) * 1'000'000);
}

void CountModelsOf(benchmark::State& state) {
    const SampleFiles::File& file = Sample(state);
    for (auto step : state) {
        if (CountModels(file.path) != file.models) state.SkipWithError("wrong count");
    }
    Report(state);
}

void ListModelsOf(benchmark::State& state) {
    const SampleFiles::File& file = Sample(state);
    for (auto step : state) {
        const auto entries = ListModelsWithPositions(file.path);
        if (entries.size() != static_cast<size_t>(file.models)) state.SkipWithError("wrong list");
    }
    Report(state);
}

void FindLastModelOf(benchmark::State& state) {
    const SampleFiles::File& file = Sample(state);
    for (auto step : state) {
        TextReader reader;
        std::string keyword;
        if (!OpenText(reader, file.path) || !FindModel(reader, file.models, keyword)) {
            state.SkipWithError("not found");
        }
    }
    Report(state);
}

// Clicks on models in any order: the time of one, and the most that was read for it beyond its
// block (and the few hundred bytes of asking how much was read).
void ClickOnModelsOf(benchmark::State& state) {
    const SampleFiles::File& file = Sample(state);
    const std::vector<ModelEntry> models = ListModels(file.path);
    uint32_t random = 2026;
    long long most = 0;
    for (auto step : state) {
        state.PauseTiming();
        const size_t index = benchmarks::NextRandom(random) % (models.size() - 1);
        const long long before = benchmarks::BytesRead();
        state.ResumeTiming();
        SectionModel section;
        float x = 0;
        const bool isRead =
            models[index].kind == ModelKind::kSection
                ? ReadSectionBlock(file.path, PlaceOf(models[index]), false, section)
                : ReadModelPosition(file.path, PlaceOf(models[index]), x);
        state.PauseTiming();
        if (!isRead) state.SkipWithError("not read");
        const int64_t block = models[index + 1].offset - models[index].offset;
        most = std::max(most, benchmarks::BytesRead() - before - block);
        state.ResumeTiming();
    }
    state.counters["KiB_beyond_block"] = static_cast<double>(most) / 1024;
}

void CopyModelsOf(benchmark::State& state) {
    const SampleFiles::File& file = Sample(state);
    const std::wstring copy = file.path + L".copy";
    for (auto step : state) {
        TextReader reader;
        TextWriter writer;
        if (!OpenText(reader, file.path) || !CreateText(writer, copy)) {
            state.SkipWithError("not copied");
        }
        CopyFileHead(reader, writer);
        CopyModels(reader, writer, 1, -1, 1);
        if (!CloseText(writer)) state.SkipWithError("not written");
    }
    KillFile(copy);
    Report(state);
}

BENCHMARK(CountModelsOf)->Arg(3)->Arg(30)->Arg(290)->Unit(benchmark::kMillisecond);
BENCHMARK(ListModelsOf)->Arg(3)->Arg(30)->Arg(290)->Unit(benchmark::kMillisecond);
BENCHMARK(FindLastModelOf)->Arg(3)->Arg(30)->Arg(290)->Unit(benchmark::kMillisecond);
BENCHMARK(ClickOnModelsOf)->Arg(3)->Arg(290)->Iterations(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(CopyModelsOf)->Arg(3)->Arg(30)->Arg(290)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvane
