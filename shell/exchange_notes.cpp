#include "shell/exchange_notes.h"

#include <cmath>

#include "bsd/bsd_file.h"
#include "bsd/frames.h"
#include "database/section_block.h"
#include "files/progress.h"
#include "legacy/exchange.h"
#include "legacy/legacy_room.h"
#include "report/reporters.h"
#include "shell/exchange_boxes.h"
#include "shell/state.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

// Dimensions [m] that are nearer than this are the same.
constexpr float kSameLength_m = 0.001F;

struct ShipNotes {
    std::wstring text;
    size_t field = 0;  // in kMsgShipFields
};

void NoteDifference(ShipNotes& notes, const std::wstring& chosen, const std::wstring& open) {
    const std::wstring name = GetMessagePart(kMsgShipFields, notes.field++);
    if (chosen.empty() || open.empty() || EqualsIgnoringCase(chosen, open)) return;
    if (!notes.text.empty()) notes.text += L", ";
    notes.text += FormatMessage(kMsgInsteadOf, {name, chosen, open});
}

void NoteLength(ShipNotes& notes, float chosen_m, float open_m) {
    const bool areSame = std::abs(chosen_m - open_m) < kSameLength_m;
    NoteDifference(notes, areSame ? L"" : GeneralText(chosen_m), GeneralText(open_m));
}

void NoteFrames(ShipNotes& notes, const BasicShipData& chosen, const BasicShipData& open) {
    const FrameTable theirs = FramesOf(chosen);
    const FrameTable ours = FramesOf(open);
    if (theirs == ours || theirs.empty() || ours.empty()) return;
    if (!notes.text.empty()) notes.text += L", ";
    notes.text += GetMessagePart(kMsgShipFields, notes.field);
}

// In kMsgShipFields.
constexpr size_t kTitleField = 5;
constexpr size_t kMainDataField = 6;
constexpr size_t kReductionField = 7;

void NoteSaved(const std::wstring& name, const std::wstring& read, const std::wstring& saved,
               Losses& losses) {
    if (read != saved) NoteLoss(losses, kMsgShipValueSet, {name, read, saved});
}

}  // namespace

void NoteSavedShip(const BasicShipData& read, const BasicShipData& saved, Losses& losses) {
    for (int32_t i = 1; i <= 5; ++i) {
        const std::wstring name = FormatMessage(GetMessagePart(kMsgShipFields, kTitleField), {i});
        NoteSaved(name, read.Titles(i).Trimmed(), saved.Titles(i).Trimmed(), losses);
    }
    for (int32_t i = 1; i <= 30; ++i) {
        const std::wstring name =
            FormatMessage(GetMessagePart(kMsgShipFields, kMainDataField), {i});
        NoteSaved(name, GeneralText(read.MainData(i)), GeneralText(saved.MainData(i)), losses);
    }
    NoteSaved(GetMessagePart(kMsgShipFields, kReductionField), GeneralText(read.ReductionFactor),
              GeneralText(saved.ReductionFactor), losses);
}

std::wstring RoomNote(const SectionModel& section) {
    const std::vector<LegacyNeed> needs = NeedsOf(section);
    return FormatMessage(FitsAll(needs) ? kMsgFitsLegacy : kMsgExceedsLegacy, {RoomText(needs)});
}

std::wstring RoomNote(const std::wstring& path, const std::vector<ModelEntry>& sections) {
    const NoWarningBoxes none;
    std::wstring first;
    std::wstring what;
    int32_t exceeding = 0;
    Progress progress(static_cast<int64_t>(sections.size()));
    for (const ModelEntry& entry : sections) {
        if (!Advance(progress, 1)) return {};
        SectionModel section;
        if (!ReadSectionBlock(path, PlaceOf(entry), false, section)) continue;
        const std::vector<LegacyNeed> needs = NeedsOf(section);
        if (FitsAll(needs) || exceeding++ > 0) continue;
        first = entry.name;
        what = RoomText(needs);
    }
    const auto count = static_cast<int32_t>(sections.size());
    if (exceeding == 0) return FormatMessage(kMsgAllFitLegacy, {count});
    return FormatMessage(kMsgSomeExceedLegacy, {exceeding, count, first, what});
}

std::wstring ShipNote(const BasicShipData& bsd, const BasicShipData& open) {
    if (!IsBsdDefined(bsd) || !IsBsdDefined(open)) return {};
    ShipNotes notes;
    NoteDifference(notes, bsd.Titles(1).Trimmed(), open.Titles(1).Trimmed());
    for (int i = 1; i <= 3; ++i) NoteLength(notes, bsd.MainData(i), open.MainData(i));
    NoteFrames(notes, bsd, open);
    return notes.text.empty() ? L"" : FormatMessage(kMsgAnotherShip, {notes.text});
}

std::wstring ShipNoteOfFile(const std::wstring& path) {
    const NoWarningBoxes none;
    BasicShipData bsd;
    const bool isRead = IsLegacyDatabase(path)
                            ? LoadBsdFromLegacy(path, bsd) == 0
                            : LoadBsdFromDatabase(path, bsd, NoBlock::kIsNoFault);
    return isRead ? ShipNote(bsd, shell.database.bsd) : L"";
}

std::wstring ModelNote(ModelKind kind, float x_m) {
    if (!FactsOf(kind).hasPosition || x_m < 0) return KindName(kind);
    return FormatMessage(kMsgKindAndX, {KindName(kind), x_m});
}

}  // namespace corvane
