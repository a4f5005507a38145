#include "shell/legacy_conversion.h"

#include "files/file_system.h"
#include "files/paths.h"
#include "legacy/exchange.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/exchange_ending.h"
#include "shell/file_prompt.h"
#include "shell/new_file.h"
#include "shell/section_conversion.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {
namespace {

// Base name of the legacy databases whose folder names the ship.
constexpr wchar_t kDefaultName[] = L"star";

std::wstring NewBaseName(const std::wstring& legacyPath) {
    const std::wstring baseName = StripExtension(FileNameOf(legacyPath));
    const bool isDefault = LowerCase(baseName) == kDefaultName;
    return isDefault ? CleanFileName(DirectoryOf(legacyPath)) : baseName;
}

bool ConfirmWriting(const std::wstring& path) {
    if (!FileExists(path)) return true;
    if (!IsDatabaseOpen() || !IsSameFile(path, shell.database.path)) {
        return shell.view.askIrreversible(BoxText(kMsgOverwriteQuestion, {path}));
    }
    const auto count = static_cast<int32_t>(shell.database.rows.size());
    return shell.view.askIrreversible(BoxText(kMsgReplaceOpenQuestion, {path, count}));
}

// A conversion on its way.
struct Conversion {
    const std::wstring& source;
    ExchangeReport report = {};
    bool isCancelled = false;
};

// Where the library gives a section for any number, it cannot be said which ones beyond its list
// are there: the user says whether those of the list are to be converted.
bool ConfirmListed(const std::wstring& legacyPath, size_t listed, ExchangeReport& report) {
    const auto count = static_cast<int32_t>(listed);
    NoteLoss(report.whole, kMsgFromNumberOn, {count + 1, count});
    return shell.view.askYesNo(
        ExpandLineBreaks(FormatMessage(kMsgMoreSectionsQuestion, {legacyPath, count})));
}

bool WriteSections(Conversion& conversion, BasicShipData& bsd, const std::wstring& path) {
    const std::wstring& legacyPath = conversion.source;
    int16_t status = 0;
    LegacySections all = ListAllLegacySections(legacyPath, status);
    if (!RequireLegacyRead(legacyPath, status)) return false;
    if (all.hasMore && !ConfirmListed(legacyPath, all.sections.size(), conversion.report)) {
        return false;
    }
    SectionConversion sections{
        .source = legacyPath, .sections = std::move(all.sections), .report = conversion.report};
    const bool isDone = WriteConverted(path, bsd, sections);
    conversion.isCancelled = sections.progress.isCancelled;
    return isDone;
}

// Reads the ship's data, with the ship's name as the new database has it.
bool ReadShip(const std::wstring& legacyPath, BasicShipData& bsd) {
    if (!RequireLegacyRead(legacyPath, LoadBsdFromLegacy(legacyPath, bsd))) return false;
    bsd.Titles(5).Assign(UpperCase(NewBaseName(legacyPath)));
    return true;
}

// Makes the new database, without its losses reported. False, and reported, when it is not there.
bool MakeDatabase(Conversion& conversion, BasicShipData& bsd, const std::wstring& path) {
    return ConfirmWriting(path) &&
           MakeFile(path, ReplacementBy(conversion.source), [&](const std::wstring& temporary) {
               return WriteSections(conversion, bsd, temporary);
           });
}

// The new database in WorkDirectory becomes the open one.
bool Convert(Conversion& conversion) {
    BasicShipData bsd;
    if (!ReadShip(conversion.source, bsd)) return false;
    const std::wstring baseName = NewBaseName(conversion.source);
    ChangeToDirectory(shell.settings.WorkDirectory);
    const std::wstring path = system::AbsolutePath(baseName + L".ve2");
    if (!MakeDatabase(conversion, bsd, path)) return false;
    AdoptDatabase(LowerCase(path), bsd);
    return true;
}

std::wstring AskForLegacyFile() {
    return AskForFile({.command = ME_FileOpen,
                       .types = GetMessage(kMsgLegacyFiles),
                       .defaultExtension = L"vel",
                       .proposed = L"",
                       .directory = shell.settings.BrowseDirectory});
}

}  // namespace

void OpenLegacyDatabase(std::wstring path) {
    path = path.empty() ? AskForLegacyFile() : system::AbsolutePath(path);
    if (path.empty()) return;
    const std::wstring remembered = system::CurrentDirectory();
    ChangeToDirectory(DirectoryOf(path));
    SetBusyPointer();
    shell.settings.BrowseDirectory = DirectoryOf(path);
    Conversion conversion{.source = path};
    const bool isConverted = Convert(conversion);
    ChangeToDirectory(remembered);
    ResetMousePointer();
    RefreshMainWindow();
    if (isConverted) ShowImported(conversion.report, ME_SectionImport, path);
    if (conversion.isCancelled) ReportNote(kMsgReadingCancelled, {path});
}

bool ConvertLegacyDatabase(const std::wstring& source, const std::wstring& target) {
    BasicShipData bsd;
    Conversion conversion{.source = source};
    if (!ReadShip(source, bsd) || !MakeDatabase(conversion, bsd, target)) return false;
    ReportLosses(source, conversion.report);
    return true;
}

bool SaveAsLegacyDatabase(const std::wstring& path, ExchangeReport& report) {
    return MakeFile(path, L"", [&](const std::wstring& temporary) {
        return ExportDatabase({shell.database.path, temporary, path}, report);
    });
}

}  // namespace corvane
