// One section of 30 strakes, read from a file and written to one.
#include <benchmark/benchmark.h>

#include "benchmarks/measured_section.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "files/text_file.h"
#include "platform/system.h"
#include "report/messages.h"

namespace corvane {
namespace {

// The sample in a database of its own.
struct SampleFile {
    std::wstring path;
    SectionModel section = benchmarks::MeasuredSection();

    SampleFile() {
        system::NewTemporaryName(system::TemporaryDirectory(), L"sect", path);
        Write();
    }
    ~SampleFile() { KillFile(path); }
    bool Write() {
        TextWriter writer;
        if (!CreateText(writer, path)) return false;
        WriteLine(writer, GetMessageBytes(kMsgSignature));
        WriteSectionBlock(writer, section, 1);
        return CloseText(writer);
    }
};

void ReadSectionOf30Strakes(benchmark::State& state) {
    SampleFile file;
    SectionModel section;
    for (auto step : state) {
        if (!ReadSectionBlock(file.path, 1, false, section)) state.SkipWithError("not read");
    }
    if (section.panels.size() != benchmarks::kStrakes) state.SkipWithError("wrong section");
}

void WriteSectionOf30Strakes(benchmark::State& state) {
    SampleFile file;
    for (auto step : state) {
        if (!file.Write()) state.SkipWithError("not written");
    }
}

BENCHMARK(ReadSectionOf30Strakes)->Unit(benchmark::kMicrosecond);
BENCHMARK(WriteSectionOf30Strakes)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace corvane
