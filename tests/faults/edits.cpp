#include "tests/faults/edits.h"

#include "bsd/bsd_file.h"
#include "database/creating.h"
#include "database/editing.h"
#include "database/scanning.h"
#include "database/stamps.h"
#include "files/rewrite.h"
#include "files/text_file.h"
#include "platform/ztutil32.h"
#include "report/messages.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/database/sample_database.h"
#include "tests/database/section_sample.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane::faults {
namespace {

enum Model : int32_t { kTorsionModel = 1, kSection, kBulkhead, kLastSection, kNewModel };

// More than a reader's buffer holds, so that spans are cut.
constexpr size_t kTorsionText = kTextBufferSize + 20'000;
// Several buffers.
constexpr size_t kLongText = 3 * kTextBufferSize + 1'000;

std::string TorsionBlock() {
    test::SampleBlock block;
    block.keyword = "TORSION";
    block.name = "Hold 3";
    for (int row = 1; block.body.size() < kTorsionText; ++row) {
        block.body += ' ' + std::to_string(row) + " \t .5 \t 12.5 \t 3.25 \r\n";
    }
    return BlockText(block);
}

std::string MakeOldDatabase() {
    LoadLibraries();
    const test::RecordedReports screen;
    const test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    BasicShipData bsd;
    bsd.Titles(1).Assign(L"Sample ship");
    CreateDatabaseFile(path, bsd);
    test::WriteFileBytes(path, test::ReadFileBytes(path) + TorsionBlock());
    SectionModel section = test::FullSection();
    BulkheadArrangement arrangement = test::FullArrangement();
    ReplaceSection(path, section, kSection);
    ReplaceBulkheadArrangement(path, arrangement, kBulkhead);
    ReplaceSection(path, section, kLastSection);
    return test::ReadFileBytes(path);
}

bool SaveBsd(const std::wstring& path) {
    BasicShipData bsd;
    bsd.Titles(1).Assign(L"Another ship");
    return SaveBsdToDatabase(path, bsd);
}

bool NewDatabase(const std::wstring& path) {
    BasicShipData bsd;
    return CreateDatabaseFile(path, bsd);
}

bool RewriteText(const std::wstring& path, bool keepBackup) {
    return RepeatUntilUnchanged(path, [&] {
        Rewrite rewrite;
        BeginRewrite(rewrite, path);
        rewrite.keepBackup = keepBackup;
        for (size_t size = 0; size < kLongText; size += 32) {
            WriteLine(rewrite.writer, "a line of the new text, 30 long");
        }
        return FinishRewrite(rewrite);
    });
}

template <bool kKeepBackup>
bool RewriteAll(const std::wstring& path) {
    return RewriteText(path, kKeepBackup);
}

template <int32_t kNumber, bool kKeepBackup>
bool WriteSection(const std::wstring& path) {
    std::wstring database = path;
    SectionModel section;
    section.name = L"A new section";
    return ReplaceSection(database, section, kNumber, {kKeepBackup});
}

template <int32_t kNumber, bool kKeepBackup>
bool WriteBulkhead(const std::wstring& path) {
    std::wstring database = path;
    BulkheadArrangement arrangement;
    return ReplaceBulkheadArrangement(database, arrangement, kNumber, {kKeepBackup});
}

template <int32_t kNumber, ModelKind kKind, bool kKeepBackup>
bool Copy(const std::wstring& path) {
    std::wstring database = path;
    return CopyModel(database, {kNumber, kKind, L"A copy", {kKeepBackup}}) >= kNewModel;
}

template <int32_t kNumber, bool kKeepBackup>
bool Delete(const std::wstring& path) {
    return DeleteModel(path, kNumber, kKeepBackup);
}

void GiveIdentifier(char* buffer, int32_t size) {
    constexpr std::string_view kIdentifier = "{00000000-0000-0000-0000-000000000001}";
    buffer[kIdentifier.copy(buffer, static_cast<size_t>(size) - 1)] = '\0';
}

std::vector<Edit> MakeEdits() {
    // The name, the file and the older backup that are there, whether one is kept, the procedure,
    // whether the new text keeps what is in the old one.
    std::vector<Edit> edits = {
        {"new_database", false, false, false, NewDatabase, false},
        {"new_over_old", true, false, false, NewDatabase, false},
        {"save_bsd", true, false, true, SaveBsd},
        {"rewrite", true, false, false, RewriteAll<false>, false},
        {"rewrite_backup", true, false, true, RewriteAll<true>, false},
        {"rewrite_second_backup", true, true, true, RewriteAll<true>, false},
        {"replace_section", true, false, false, WriteSection<kSection, false>},
        {"replace_section_backup", true, true, true, WriteSection<kSection, true>},
        {"append_section", true, false, false, WriteSection<kNewModel, false>},
        {"append_section_backup", true, false, true, WriteSection<kNewModel, true>},
        {"replace_bulkhead", true, false, false, WriteBulkhead<kBulkhead, false>},
        {"replace_bulkhead_backup", true, true, true, WriteBulkhead<kBulkhead, true>},
        {"append_bulkhead_backup", true, false, true, WriteBulkhead<kNewModel, true>},
        {"copy_section", true, false, true, Copy<kSection, ModelKind::kSection, true>},
        {"copy_bulkhead", true, true, true, Copy<kBulkhead, ModelKind::kBulkhead, true>},
        {"copy_torsion", true, false, false, Copy<kTorsionModel, ModelKind::kTorsion, false>},
        {"copy_torsion_backup", true, true, true, Copy<kTorsionModel, ModelKind::kTorsion, true>},
        {"delete_first", true, false, false, Delete<kTorsionModel, false>},
        {"delete_middle_backup", true, true, true, Delete<kSection, true>},
        {"delete_last_backup", true, false, true, Delete<kLastSection, true>},
    };
    for (const Edit& edit : DosEdits()) edits.push_back(edit);
    return edits;
}

}  // namespace

const std::vector<Edit>& Edits() {
    static const std::vector<Edit> edits = MakeEdits();
    return edits;
}

const Edit* FindEdit(std::string_view name) {
    for (const Edit& edit : Edits()) {
        if (edit.name == name) return &edit;
    }
    return nullptr;
}

void LoadLibraries() {
    FetchStructuralLines();
    CurrentStamp();
    GenerateID.pointer = GiveIdentifier;
    UseDosLibrary();
}

const std::string& OldDatabase() {
    static const std::string text = MakeOldDatabase();
    return text;
}

}  // namespace corvane::faults
