// How the scans of a database grow with its size: 3, 30 and 290 MB.
#include <benchmark/benchmark.h>

#include <map>

#include "benchmarks/measured_database.h"
#include "database/listing.h"
#include "database/scanning.h"
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
BENCHMARK(CopyModelsOf)->Arg(3)->Arg(30)->Arg(290)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvane
