#include "shell/legacy_conversion.h"

#include "database/creating.h"
#include "database/editing.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "files/progress.h"
#include "legacy/exchange.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/file_prompt.h"
#include "shell/new_file.h"
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

// The library lists 20 sections at most. When there are more, the user says whether those are to be
// converted; how many are left out is noted.
bool ConfirmListed(const std::wstring& legacyPath, size_t listed, ExchangeLosses& losses) {
    const int32_t count = CountLegacySections(legacyPath, listed);
    const auto shown = static_cast<int32_t>(listed);
    if (count <= shown) return true;
    NoteLoss(losses.whole, kMsgSectionsNotConverted, {count - shown, count});
    return shell.view.askYesNo(
        ExpandLineBreaks(FormatMessage(kMsgMoreSectionsQuestion, {legacyPath, count, shown})));
}

// A conversion on its way.
struct Conversion {
    const std::wstring& source;
    ExchangeLosses losses = {};
    Progress progress{};
};

// Appends the sections to a database that has no model.
bool AppendSections(Conversion& conversion, std::wstring& path) {
    const std::wstring& legacyPath = conversion.source;
    int16_t status = 0;
    const std::vector<ModelEntry> list = ListLegacySections(legacyPath, status);
    if (!RequireLegacyRead(legacyPath, status)) return false;
    if (!ConfirmListed(legacyPath, list.size(), conversion.losses)) return false;
    conversion.progress.total = static_cast<int64_t>(list.size());
    for (int16_t number = 1; static_cast<size_t>(number) <= list.size(); ++number) {
        SectionModel section;
        if (!Advance(conversion.progress, 1) ||
            !ImportSection(legacyPath, number, section, conversion.losses)) {
            return false;
        }
        if (!ReplaceSection(path, section, number)) return false;
    }
    return RequireAllRead(legacyPath);
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
           MakeFile(path, ReplacementBy(conversion.source), [&](std::wstring temporary) {
               return CreateDatabaseFile(temporary, bsd) && AppendSections(conversion, temporary);
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
    if (isConverted) ReportLosses(path, conversion.losses);
    if (conversion.progress.isCancelled) ReportNote(kMsgReadingCancelled, {path});
}

bool ConvertLegacyDatabase(const std::wstring& source, const std::wstring& target) {
    BasicShipData bsd;
    Conversion conversion{.source = source};
    if (!ReadShip(source, bsd) || !MakeDatabase(conversion, bsd, target)) return false;
    ReportLosses(source, conversion.losses);
    return true;
}

bool SaveAsLegacyDatabase(const std::wstring& path) {
    return MakeFile(path, L"", [&](const std::wstring& temporary) {
        return ExportDatabase(shell.database.path, temporary, path);
    });
}

}  // namespace corvane
