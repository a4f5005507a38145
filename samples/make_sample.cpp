// Writes the sample ship anew: the ship's data, the heads of the sections and all other models are
// taken from the old file, the bodies of the sections are drafted.
//
//     make_sample <old file> <new file>
#include <cmath>
#include <cstdio>
#include <string>

#include "app/messages.h"
#include "database/database_file.h"
#include "database/section_file.h"
#include "database/stamps.h"
#include "platform/system.h"
#include "samples/ship_sections.h"

namespace corvane::samples {
namespace {

constexpr int32_t kSectionCount = 9;

// The same lines whenever and wherever the sample is made.
Stamp SampleStamp() {
    Stamp stamp;
    stamp.firstIdentification = L"Corvane";
    stamp.secondIdentification = L"sample";
    stamp.date = L"02/03/2026";
    stamp.time = L"10:15:00";
    return stamp;
}

bool WriteSections(const std::wstring& oldPath, TextWriter& writer) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        SectionDraft draft;
        if (!ReadSectionBlock(oldPath, number, false, draft.model)) return false;
        draft.model.panels.clear();
        draft.model.compartments.clear();
        DraftSection(draft, number);
        const SectionModel& model = draft.model;
        std::printf("%d: code %d, area %.3f, axis %.3f, moduli %.2f %.2f\n", number, draft.code,
                    model.area_m2, model.neutralAxis_m, model.deckModulus_m3,
                    model.bottomModulus_m3);
        if (draft.code != 0) return false;
        WriteBlockHead(writer, number, ModelKind::kSection, SampleStamp());
        WriteSectionBody(writer, draft.model);
    }
    return true;
}

// From the first section's marker to that of the first other model.
bool PassSections(TextReader& reader) {
    const std::string marker = GetMessageBytes(kMsgModelMarker);
    std::string_view line;
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        if (!FindLine(reader, marker) || !ReadLine(reader, line)) return false;
    }
    return FindLine(reader, marker);
}

bool MakeSample(const std::wstring& oldPath, const std::wstring& newPath) {
    TextReader reader;
    TextWriter writer;
    if (!OpenText(reader, oldPath) || !CreateText(writer, newPath)) return false;
    CopyFileHead(reader, writer);
    if (!WriteSections(oldPath, writer)) return false;
    if (!PassSections(reader)) return false;
    CopySpan(reader, -1, writer);
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
