#include "tests/faults/edits.h"

#include "bsd/bsd_file.h"
#include "database/check.h"
#include "database/creating.h"
#include "database/editing.h"
#include "database/repair.h"
#include "database/scanning.h"
#include "database/stamps.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "files/rewrite.h"
#include "files/text_file.h"
#include "platform/ztutil32.h"
#include "report/messages.h"
#include "report/reporters.h"
#include "shell/edit_history.h"
#include "shell/new_file.h"
#include "shell/state.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/database/sample_database.h"
#include "tests/database/section_sample.h"
#include "tests/faults/expected.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane::faults {
namespace {

enum Model : int32_t { kTorsionModel = 1, kSection, kBulkhead, kLastSection, kNewModel };

constexpr wchar_t kCopyName[] = L"A copy";
constexpr wchar_t kTorsionName[] = L"Hold 3";

// More than a reader's buffer holds, so that spans are cut.
constexpr size_t kTorsionText = kTextBufferSize + 20'000;
// Several buffers.
constexpr size_t kLongText = 3 * kTextBufferSize + 1'000;

std::string TorsionBlock() {
    test::SampleBlock block;
    block.keyword = "TORSION";
    block.name = system::AnsiFromWide(kTorsionName);
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

BasicShipData AnotherShip() {
    BasicShipData bsd;
    bsd.Titles(1).Assign(L"Another ship");
    return bsd;
}

bool SaveBsd(const std::wstring& path) {
    BasicShipData bsd = AnotherShip();
    return SaveBsdToDatabase(path, bsd);
}

std::string WithAnotherShip(const std::string& oldText) {
    return WithShipData(oldText, AnotherShip());
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
        for (size_t size = 0; size < kLongText; size += 33) {
            WriteLine(rewrite.writer, "a line of the new text, 30 long");
        }
        return FinishRewrite(rewrite);
    });
}

std::string LongText(const std::string&) {
    std::string text;
    while (text.size() < kLongText) text += "a line of the new text, 30 long\r\n";
    return text;
}

template <bool kKeepBackup>
bool RewriteAll(const std::wstring& path) {
    return RewriteText(path, kKeepBackup);
}

SectionModel NewSection() {
    SectionModel section;
    section.name = L"A new section";
    return section;
}

std::string NewSectionBlock(int32_t number) {
    SectionModel section = NewSection();
    return test::BlockText(section, number);
}

std::string NewBulkheadBlock(int32_t number) {
    BulkheadArrangement arrangement;
    return test::BlockText(arrangement, number);
}

// A copy of that section, with the identifier that the writer gives.
std::string SectionCopyBlock(int32_t number) {
    SectionModel section = test::FullSection();
    section.name = kCopyName;
    section.identifier.clear();
    return test::BlockText(section, number);
}

std::string BulkheadCopyBlock(int32_t number) {
    BulkheadArrangement arrangement = test::FullArrangement();
    arrangement.name = kCopyName;
    arrangement.identifier.clear();
    return test::BlockText(arrangement, number);
}

template <int32_t kNumber, std::string (*block)(int32_t)>
std::string Replaced(const std::string& oldText) {
    return WithBlock(oldText, kNumber, block);
}

template <std::string (*block)(int32_t)>
std::string Appended(const std::string& oldText) {
    return WithNewBlock(oldText, block);
}

template <int32_t kNumber>
std::string Copied(const std::string& oldText) {
    return WithCopy(oldText, kNumber);
}

template <int32_t kNumber>
std::string Deleted(const std::string& oldText) {
    return WithoutBlock(oldText, kNumber);
}

template <int32_t kNumber, bool kKeepBackup>
bool WriteSection(const std::wstring& path) {
    std::wstring database = path;
    SectionModel section = NewSection();
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
    return CopyModel(database, {kNumber, kKind, kCopyName, {kKeepBackup}}) >= kNewModel;
}

template <int32_t kNumber, bool kKeepBackup>
bool Delete(const std::wstring& path) {
    return DeleteModel(path, kNumber, kKeepBackup);
}

// Made once, before calls are counted: making a record reads and writes files.
const std::wstring& NameOf(int32_t number) {
    static const std::wstring section = test::FullSection().name;
    static const std::wstring arrangement = test::FullArrangement().name;
    static const std::wstring torsion = kTorsionName;
    if (number == kTorsionModel) return torsion;
    return number == kBulkhead ? arrangement : section;
}

template <int32_t kNumber, bool kKeepBackup>
bool Rename(const std::wstring& path) {
    std::wstring database = path;
    return RenameModel(database, {kNumber, NameOf(kNumber), kCopyName, {kKeepBackup}});
}

template <int32_t kNumber>
std::string Renamed(const std::string& oldText) {
    return WithName(oldText, kNumber, NameOf(kNumber), kCopyName);
}

constexpr std::string_view kIdentifier = "{00000000-0000-0000-0000-000000000001}";

void CORVANE_STDCALL GiveIdentifier(char* buffer, int32_t size) {
    buffer[kIdentifier.copy(buffer, static_cast<size_t>(size) - 1)] = '\0';
}

// ---- The history -------------------------------------------------------------------------------

// The user declines.
bool AnswerNo(const std::wstring& question) {
    test::RecordedReports::Record("warning " + test::Narrow(question));
    return false;
}

// The shell with this database open.
void OpenInShell(const std::wstring& path) {
    shell.database.path = path;
    shell.view.askIrreversible = AnswerNo;
    UseHistory();
}

bool DeleteWithHistory(const std::wstring& path) {
    OpenInShell(path);
    const EditName name(L"Delete of 'A section'");
    return DeleteModel(path, kSection, true);
}

// The section was deleted, and no backup is there.
void MakeDeleted(const std::wstring& path) {
    DeleteWithHistory(path);
    system::RemoveFile(BackupPath(path));
}

void MakeUndone(const std::wstring& path) {
    MakeDeleted(path);
    UndoEdit();
    system::RemoveFile(BackupPath(path));
}

bool Undo(const std::wstring& path) {
    OpenInShell(path);
    return UndoEdit();
}

bool Redo(const std::wstring& path) {
    OpenInShell(path);
    return RedoEdit();
}

bool Restore(const std::wstring& path) {
    OpenInShell(path);
    const VersionChoice choice = ReadVersions();
    return !choice.versions.empty() && RestoreVersion(choice);
}

// A copy of the source replaces the database.
bool SaveAsWithHistory(const std::wstring& path) {
    OpenInShell(path);
    return PutFile(DirectoryOf(path) + kSourceName, path, L"Replacement by 'ship.vel'");
}

const std::string& DeletedDatabase() {
    static const std::string text = WithoutBlock(OldDatabase(), kSection);
    return text;
}

// Whatever the database has, the other text comes back.
template <const std::string& (*text)()>
std::string Restored(const std::string&) {
    return text();
}

Edit WithHistory(const char* name, bool (*run)(const std::wstring& path),
                 std::string (*expected)(const std::string& oldText)) {
    Edit edit{name, true, false, true, run, expected, false};
    edit.keepsHistory = true;
    return edit;
}

std::vector<Edit> HistoryEdits() {
    Edit edit = WithHistory("delete_with_history", DeleteWithHistory, Deleted<kSection>);
    edit.keepsText = true;
    Edit undo = WithHistory("undo", Undo, Restored<OldDatabase>);
    Edit restore = WithHistory("restore", Restore, Restored<OldDatabase>);
    undo.oldText = restore.oldText = DeletedDatabase;
    undo.prepare = restore.prepare = MakeDeleted;
    Edit redo = WithHistory("redo", Redo, Restored<DeletedDatabase>);
    redo.prepare = MakeUndone;
    undo.yields = redo.yields = true;
    Edit saveAs = WithHistory("save_as_with_history", SaveAsWithHistory, nullptr);
    saveAs.keepsBackup = false;
    saveAs.oldText = DeletedDatabase;
    saveAs.source = OldDatabase;
    return {edit, undo, redo, restore, saveAs};
}

// ---- Repair ------------------------------------------------------------------------------------

// Where the text is last; it must be there.
std::string WithLast(std::string text, std::string_view from, std::string_view to) {
    return text.replace(text.rfind(from), from.size(), to);
}

// The last model's number is too large, and the last line has no end. Its identifier is also that
// of another model.
const std::string& DamagedDatabase() {
    static const std::string text = [] {
        std::string damaged = WithLast(OldDatabase(), " 4 \r\nSECTION", " 9 \r\nSECTION");
        damaged.resize(damaged.size() - 2);
        return damaged;
    }();
    return text;
}

std::string Repaired(const std::string&) {
    return WithLast(OldDatabase(), test::FullSection().identifier, kIdentifier);
}

// The user agrees to these three changes and to no others.
bool CheckAndRepair(const std::wstring& path) {
    CheckResult result;
    RepairCounts done{};
    if (!CheckDatabase(path, [](const Finding&) {}, result)) return false;
    if (result.repairs.size() != 3) {
        ReportMessage(kMsgChangedSinceCheck, {path});
        return false;
    }
    return RepairDatabase(path, result.stamp, result.repairs, done);
}

Edit RepairEdit() {
    Edit edit{"repair_backup", true, true, true, CheckAndRepair, Repaired};
    edit.oldText = DamagedDatabase;
    edit.yields = true;
    return edit;
}

void CORVANE_STDCALL GiveName(char* buffer, int32_t size) {
    buffer[std::string_view("Anna").copy(buffer, static_cast<size_t>(size) - 1)] = '\0';
}

std::vector<Edit> MakeEdits() {
    // The name, the file and the older backup that are there, whether one is kept, the procedure,
    // the text that it must make.
    std::vector<Edit> edits = {
        {"new_database", false, false, false, NewDatabase},
        {"new_over_old", true, false, false, NewDatabase},
        {"save_bsd", true, false, true, SaveBsd, WithAnotherShip},
        {"rewrite", true, false, false, RewriteAll<false>, LongText, false},
        {"rewrite_backup", true, false, true, RewriteAll<true>, LongText, false},
        {"rewrite_second_backup", true, true, true, RewriteAll<true>, LongText, false},
        {"replace_section", true, false, false, WriteSection<kSection, false>,
         Replaced<kSection, NewSectionBlock>},
        {"replace_section_backup", true, true, true, WriteSection<kSection, true>,
         Replaced<kSection, NewSectionBlock>},
        {"append_section", true, false, false, WriteSection<kNewModel, false>,
         Appended<NewSectionBlock>},
        {"append_section_backup", true, false, true, WriteSection<kNewModel, true>,
         Appended<NewSectionBlock>},
        {"replace_bulkhead", true, false, false, WriteBulkhead<kBulkhead, false>,
         Replaced<kBulkhead, NewBulkheadBlock>},
        {"replace_bulkhead_backup", true, true, true, WriteBulkhead<kBulkhead, true>,
         Replaced<kBulkhead, NewBulkheadBlock>},
        {"append_bulkhead_backup", true, false, true, WriteBulkhead<kNewModel, true>,
         Appended<NewBulkheadBlock>},
        {"copy_section", true, false, true, Copy<kSection, ModelKind::kSection, true>,
         Appended<SectionCopyBlock>},
        {"copy_bulkhead", true, true, true, Copy<kBulkhead, ModelKind::kBulkhead, true>,
         Appended<BulkheadCopyBlock>},
        {"copy_torsion", true, false, false, Copy<kTorsionModel, ModelKind::kTorsion, false>,
         Copied<kTorsionModel>},
        {"copy_torsion_backup", true, true, true, Copy<kTorsionModel, ModelKind::kTorsion, true>,
         Copied<kTorsionModel>},
        {"delete_first", true, false, false, Delete<kTorsionModel, false>, Deleted<kTorsionModel>},
        {"delete_middle_backup", true, true, true, Delete<kSection, true>, Deleted<kSection>},
        {"delete_last_backup", true, false, true, Delete<kLastSection, true>,
         Deleted<kLastSection>},
        {"rename_torsion", true, false, false, Rename<kTorsionModel, false>,
         Renamed<kTorsionModel>},
        {"rename_section_backup", true, true, true, Rename<kSection, true>, Renamed<kSection>},
        {"rename_bulkhead_backup", true, false, true, Rename<kBulkhead, true>, Renamed<kBulkhead>},
    };
    edits.push_back(RepairEdit());
    for (const Edit& edit : DosEdits()) edits.push_back(edit);
    for (const Edit& edit : HistoryEdits()) edits.push_back(edit);
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
    LoginName.pointer = GiveName;
    NameOf(kSection);
    UseDosLibrary();
}

const std::string& OldDatabase() {
    static const std::string text = MakeOldDatabase();
    return text;
}

}  // namespace corvane::faults
