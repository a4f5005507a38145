// Files that are made of another one, which stays as it is: the DOS library's files, the
// conversions to them and from them, and the copy of Save As.
#include "files/file_system.h"
#include "files/paths.h"
#include "legacy/exchange.h"
#include "platform/bsdvelk.h"
#include "platform/ztvelk32.h"
#include "shell/legacy_conversion.h"
#include "shell/new_file.h"
#include "shell/open_database.h"
#include "shell/state.h"
#include "tests/faults/edits.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane::faults {
namespace {

std::wstring SourceOf(const std::wstring& path) {
    return DirectoryOf(path) + kSourceName;
}

std::string MakeOldDosDatabase() {
    const std::string models = OldDatabase();
    const test::RecordedReports screen;
    const test::TemporaryFolder folder;
    const std::wstring source = folder.File(L"ship.ve2");
    const std::wstring path = folder.File(L"ship.vel");
    test::WriteFileBytes(source, models);
    ExchangeReport report;
    ExportDatabase({source, path}, report);
    return test::ReadFileBytes(path);
}

// Of two sections.
const std::string& OldDosDatabase() {
    static const std::string bytes = MakeOldDosDatabase();
    return bytes;
}

template <int16_t kSlot, bool kIsNew>
bool Export(const std::wstring& path) {
    SectionModel section;
    section.name = L"Frame 12";
    section.breadth_m = section.draught_m = 10;
    section.compartments.resize(1);
    ExchangeReport report;
    return ExportSection({path, kSlot, kIsNew}, section, BasicShipData(), report);
}

bool SaveAsDos(const std::wstring& path) {
    shell.database.path = SourceOf(path);
    ExchangeReport report;
    return SaveAsLegacyDatabase(path, report);
}

// The name of the new database follows from that of the DOS database.
bool OpenDos(const std::wstring& path) {
    shell.database = {};
    shell.settings.WorkDirectory = DirectoryOf(path);
    OpenLegacyDatabase(SourceOf(path));
    return IsDatabaseOpen();
}

bool SaveAs(const std::wstring& path) {
    return PutFile(SourceOf(path), path, L"");
}

Edit DosEdit(const char* name, bool (*run)(const std::wstring& path)) {
    Edit edit{name, true, false, false, run};
    edit.oldText = OldDosDatabase;
    edit.temporaryTexts = 0;
    edit.isReadAgain = true;
    edit.replacesHeld = false;
    return edit;
}

Edit Conversion(const char* name, const std::string& (*source)(), int temporaryTexts,
                bool (*run)(const std::wstring& path)) {
    Edit edit{name, false, false, false, run};
    edit.source = source;
    edit.temporaryTexts = temporaryTexts;
    return edit;
}

}  // namespace

void UseDosLibrary() {
    BsdVelk_LoadBsdString.Resolve();
    corvane::createvelkdb.pointer = ::createvelkdb;
    corvane::extendvelkdb.pointer = ::extendvelkdb;
    corvane::addsectvelkdb.pointer = ::addsectvelkdb;
    corvane::getvelksections.pointer = ::getvelksections;
    corvane::exportvelkmainsec.pointer = ::exportvelkmainsec;
    corvane::importvelkmainsec.pointer = ::importvelkmainsec;
    corvane::exportsectiongeometry.pointer = ::exportsectiongeometry;
    corvane::importsectiongeometry.pointer = ::importsectiongeometry;
    corvane::exportvelkcompload.pointer = ::exportvelkcompload;
    corvane::importvelkcompload.pointer = ::importvelkcompload;
    corvane::exportvelkbsd.pointer = ::exportvelkbsd;
    corvane::importvelknavi.pointer = ::importvelknavi;
}

void CallDosLibraryAgain(const std::wstring& path) {
    int16_t status = 0;
    ::getvelksections(system::AnsiFromWide(path).c_str(), &status, nullptr, nullptr);
}

std::vector<Edit> DosEdits() {
    Edit saveAsOver = Conversion("save_as_over", OldDatabase, 0, SaveAs);
    saveAsOver.startsWithFile = true;
    saveAsOver.oldText = OldDosDatabase;
    return {
        DosEdit("export_section", Export<3, true>),
        DosEdit("export_over_section", Export<1, false>),
        Conversion("save_as_dos", OldDatabase, 2, SaveAsDos),
        Conversion("open_dos", OldDosDatabase, 3, OpenDos),
        Conversion("save_as", OldDatabase, 0, SaveAs),
        saveAsOver,
    };
}

}  // namespace corvane::faults
