// Writes the sample ship anew: the ship's data, the heads of the sections and the names, positions
// and identifiers of the other models are taken from the old file, everything else is drafted.
//
//     make_sample <old file> <new file>
#include <cstdio>
#include <string>
#include <vector>

#include "database/bulkhead_file.h"
#include "database/database_file.h"
#include "database/section_file.h"
#include "database/stamps.h"
#include "platform/system.h"
#include "samples/ship_bulkheads.h"
#include "samples/ship_sections.h"
#include "samples/torsion_models.h"

namespace corvane::samples {
namespace {

constexpr int32_t kSectionCount = 9;
constexpr size_t kModelCount = 14;

// The same lines whenever and wherever the sample is made.
Stamp SampleStamp() {
    Stamp stamp;
    stamp.firstIdentification = L"Corvane";
    stamp.secondIdentification = L"sample";
    stamp.date = L"02/03/2026";
    stamp.time = L"10:15:00";
    return stamp;
}

bool WriteSection(const std::wstring& oldPath, TextWriter& writer, int32_t number,
                  SectionDraft& draft) {
    SectionModel& model = draft.model;
    if (!ReadSectionBlock(oldPath, number, false, model)) return false;
    model.panels.clear();
    model.compartments.clear();
    DraftSection(draft, number);
    std::printf("%d: code %d, area %.3f, axis %.3f, moduli %.2f %.2f\n", number, draft.code,
                model.area_m2, model.neutralAxis_m, model.deckModulus_m3, model.bottomModulus_m3);
    if (draft.code != 0) return false;
    WriteBlockHead(writer, number, ModelKind::kSection, SampleStamp());
    WriteSectionBody(writer, model);
    return true;
}

bool WriteArrangement(const std::wstring& oldPath, TextWriter& writer, int32_t number) {
    BulkheadArrangement old;
    if (!ReadBulkheadBlock(oldPath, number, old)) return false;
    BulkheadArrangement arrangement;
    arrangement.name = old.name;
    arrangement.identifier = old.identifier;
    arrangement.x_m = old.x_m;
    DraftArrangement(arrangement, number);
    WriteBlockHead(writer, number, ModelKind::kBulkhead, SampleStamp());
    WriteBulkheadBody(writer, arrangement);
    return true;
}

void WriteTorsionModel(TextWriter& writer, int32_t number, const TorsionPlan& plan,
                       const std::vector<SectionDraft>& sections) {
    WriteBlockHead(writer, number, ModelKind::kTorsion, SampleStamp());
    WriteTorsionBody(writer, plan, sections);
}

bool WriteModels(const std::wstring& oldPath, TextWriter& writer) {
    const std::vector<ModelEntry> models = ListModels(oldPath);
    if (models.size() != kModelCount) return false;
    std::vector<SectionDraft> sections(kSectionCount);
    for (int32_t i = 0; i < kSectionCount; ++i) {
        if (!WriteSection(oldPath, writer, i + 1, sections[static_cast<size_t>(i)])) return false;
    }
    for (const int32_t number : {10, 11, 12}) {
        if (!WriteArrangement(oldPath, writer, number)) return false;
    }
    WriteTorsionModel(writer, 13, {models[12].name, 7, 1}, sections);
    WriteTorsionModel(writer, 14, {models[13].name, 5, 3}, sections);
    return true;
}

bool MakeSample(const std::wstring& oldPath, const std::wstring& newPath) {
    TextReader reader;
    TextWriter writer;
    if (!OpenText(reader, oldPath) || !CreateText(writer, newPath)) return false;
    CopyFileHead(reader, writer);
    if (!WriteModels(oldPath, writer)) return false;
    return reader.error == system::kErrorNone && CloseText(writer);
}

}  // namespace
}  // namespace corvane::samples

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("make_sample <old file> <new file>\n", stderr);
        return 2;
    }
    const auto path = [&](int i) { return corvane::system::WideFromAnsi(arguments[i]); };
    if (corvane::samples::MakeSample(path(1), path(2))) return 0;
    std::fputs("The sample was not made.\n", stderr);
    return 1;
}
