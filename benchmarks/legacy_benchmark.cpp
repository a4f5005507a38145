// A full legacy database, 20 sections, converted into a model database; and one of 200 written.
#include <benchmark/benchmark.h>

#include "database/creating.h"
#include "database/editing.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "legacy/exchange.h"
#include "platform/system.h"
#include "platform/ztvelk32.h"
#include "report/messages.h"

namespace corvane {
namespace {

constexpr int16_t kSections = kLegacyListedSections;
constexpr int16_t kWrittenSections = 200;

std::wstring NewFile() {
    std::wstring path;
    system::NewTemporaryName(system::TemporaryDirectory(), L"leg", path);
    return path;
}

// A section as full as the legacy form can hold it.
SectionModel FullSection(int16_t number) {
    SectionModel section;
    section.name = L"Frame " + std::to_wstring(number);
    section.x_m = number;
    section.breadth_m = section.depth_m = section.draught_m = 20;
    for (int16_t k = 0; k < 25; ++k) {
        Panel& panel = section.panels.emplace_back();
        for (int i = 0; i < 4; ++i) {
            Node node{};
            node.kind = i < 2 ? kNodeGiven : kNodeOffset;
            node.relative = i < 2 ? 0 : -1;
            node.onStrake = static_cast<int16_t>(k + 1);
            node.onNode = 1;
            node.givenY = static_cast<float>(4 * i);
            node.givenZ = i < 2 ? k : 0;
            panel.nodes.push_back(node);
        }
        panel.plates.resize(2, {6, 12, 1, 0.8F, 3.2F, 0});
    }
    for (size_t i = 0; i < 60; ++i) {
        Panel& panel = section.panels[i % 25];
        Stiffener stiffener{};
        stiffener.count = 5;
        stiffener.offset = static_cast<float>(1 + i / 25);
        panel.stiffeners.push_back(stiffener);
        Span& span = panel.stiffenerDetails.emplace_back().spans.emplace_back();
        span.scantlings = {kProfileBulb, static_cast<float>(200 + 20 * (i % 10)), 11, 0, 0};
    }
    section.compartments.resize(8);
    for (Compartment& compartment : section.compartments) {
        compartment.outline.resize(20, {1, 2});
        compartment.levels.resize(4, {1.5F, 12.25F, 6});
    }
    return section;
}

// A model database of that many full sections; appends them as a conversion does.
std::wstring MakeModels(int16_t count) {
    std::wstring path = NewFile();
    BasicShipData bsd = NewBasicShipData(L"SHIP");
    CreateDatabaseFile(path, bsd);
    for (int16_t number = 1; number <= count; ++number) {
        SectionModel section = FullSection(number);
        ReplaceSection(path, section, number);
    }
    return path;
}

void ConvertLegacyDatabase(benchmark::State& state) {
    const std::wstring models = MakeModels(kSections);
    const std::wstring legacy = NewFile();
    ExchangeReport report;
    if (!ExportDatabase({models, legacy}, report)) state.SkipWithError("no legacy database");
    std::wstring target = NewFile();
    for (auto _ : state) {
        BasicShipData bsd;
        int16_t status = LoadBsdFromLegacy(legacy, bsd);
        CreateDatabaseFile(target, bsd);
        const std::vector<ModelEntry> list = ListLegacySections(legacy, status);
        for (int16_t number = 1; static_cast<size_t>(number) <= list.size(); ++number) {
            SectionModel section;
            Losses losses;
            ImportSection(legacy, number, section, losses);
            ReplaceSection(target, section, number);
        }
        if (CountModels(target) != kSections) state.SkipWithError("sections are missing");
    }
    for (const std::wstring& path : {models, legacy, target}) KillFile(path);
}
BENCHMARK(ConvertLegacyDatabase)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

void WriteLegacyDatabase(benchmark::State& state) {
    const std::wstring models = MakeModels(kWrittenSections);
    const std::wstring legacy = NewFile();
    for (auto _ : state) {
        ExchangeReport report;
        if (!ExportDatabase({models, legacy}, report)) state.SkipWithError("not written");
    }
    for (const std::wstring& path : {models, legacy}) KillFile(path);
}
BENCHMARK(WriteLegacyDatabase)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

}  // namespace
}  // namespace corvane
