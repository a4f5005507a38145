// Any bytes as a database, and one edit of it: every other model keeps its name, its number and its
// kind, and an edit that is refused changes nothing. The first two bytes are the edit and the
// number of the model.
#include <algorithm>
#include <string>
#include <vector>

#include "database/editing.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "files/paths.h"
#include "fuzz/fuzz.h"
#include "fuzz/scratch_file.h"

namespace corvane {
namespace {

using fuzz::BytesOf;
using fuzz::Check;
using Models = std::vector<ModelEntry>;

constexpr wchar_t kNewName[] = L"Edited";

// What the list shows of a model, but for where its block is.
bool IsSameModel(const ModelEntry& a, const ModelEntry& b) {
    return a.name == b.name && a.kind == b.kind && a.x == b.x;
}

size_t PlaceOf(const Models& models, int32_t number) {
    const auto found = std::ranges::find(models, number, &ModelEntry::number);
    return static_cast<size_t>(found - models.begin());
}

void CheckDeleted(const Models& before, const Models& after, int32_t number) {
    Check(after.size() + 1 == before.size());
    const size_t place = PlaceOf(before, number);
    Check(before[place].hasOwnNumber);
    for (size_t i = 0; i < after.size(); ++i) {
        const ModelEntry& old = before[i < place ? i : i + 1];
        Check(IsSameModel(old, after[i]));
        const bool isLowered = old.number > number && after[i].number == old.number - 1;
        Check(after[i].number == old.number || isLowered);
        Check(isLowered || old.number < number || i < place);
        Check(!old.hasOwnNumber || after[i].hasOwnNumber);
    }
}

void CheckReplaced(const Models& before, const Models& after, int32_t number) {
    const size_t place = PlaceOf(before, number);
    Check(after.size() == before.size() + (place == before.size() ? 1 : 0));
    for (size_t i = 0; i < after.size(); ++i) {
        if (i == place) {
            Check(after[i].name == kNewName && after[i].number == number);
            Check(after[i].kind == ModelKind::kSection && after[i].hasOwnNumber);
        } else {
            Check(IsSameModel(before[i], after[i]) && after[i].number == before[i].number);
        }
    }
}

void CheckCopied(const Models& before, const Models& after, int32_t number, int32_t copy) {
    const size_t place = PlaceOf(before, number);
    Check(after.size() == before.size() + 1 && before[place].hasOwnNumber);
    for (size_t i = 0; i < before.size(); ++i) {
        Check(IsSameModel(before[i], after[i]) && after[i].number == before[i].number);
    }
    Check(after.back().number == copy && after.back().hasOwnNumber);
    Check(after.back().kind == before[place].kind);
}

// Does the edit and checks it; false when it was refused.
bool Edit(std::wstring path, int edit, int32_t number) {
    const Models before = ListModelsWithPositions(path);
    if (edit == 0) {
        if (!DeleteModel(path, number, false)) return false;
        CheckDeleted(before, ListModelsWithPositions(path), number);
    } else if (edit == 1) {
        SectionModel section;
        section.name = kNewName;
        if (!ReplaceSection(path, section, number)) return false;
        CheckReplaced(before, ListModelsWithPositions(path), number);
    } else {
        const size_t place = PlaceOf(before, number);
        if (place == before.size()) return false;
        const int32_t copy = CopyModel(path, {number, before[place].kind, kNewName, {}});
        if (copy == 0) return false;
        CheckCopied(before, ListModelsWithPositions(path), number, copy);
    }
    return true;
}

}  // namespace
}  // namespace corvane

CORVANE_FUZZ_TARGET(edits) {
    using namespace corvane;
    if (bytes.size() < 2 || bytes.size() > 16 * 1024) return;
    static const fuzz::ScratchFile file;
    static const fuzz::ScratchFile backup(BackupPath(file.path));
    constexpr int kEdits = 3;
    const int edit = static_cast<unsigned char>(bytes[0]) % kEdits;
    const int32_t number = static_cast<signed char>(bytes[1]);
    const std::string text =
        FetchStructuralLines().signature + "\r\n" + std::string(bytes.substr(2));
    fuzz::WriteBytesTo(file.path, text);
    if (!Edit(file.path, edit, number)) fuzz::Check(BytesOf(file.path) == text);
}
