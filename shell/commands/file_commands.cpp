#include "shell/commands/file_commands.h"

#include <string>

#include "bsd/bsd_file.h"
#include "database/creating.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "report/reporters.h"
#include "shell/commands/bsd_commands.h"
#include "shell/commands/commands.h"
#include "shell/edit_history.h"
#include "shell/exchange_ending.h"
#include "shell/file_prompt.h"
#include "shell/left_overs.h"
#include "shell/legacy_conversion.h"
#include "shell/list_text.h"
#include "shell/new_file.h"
#include "shell/picture_file.h"
#include "shell/settings_choice.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {
namespace {

constexpr wchar_t kOldExtension[] = L"vew";
constexpr wchar_t kLegacyExtension[] = L"vel";
// Base name of the databases of older versions, whose folder names the ship.
constexpr wchar_t kOldDefaultName[] = L"star";
constexpr wchar_t kCopyQuestion[] =
    L"This file has an old Velk extension. Do you want to make a copy ?";

std::wstring BaseNameOf(const std::wstring& path) {
    return StripExtension(FileNameOf(path));
}

// The prompt's types: the described patterns after the catalogue's word for databases, then
// legacy databases.
std::wstring TypesToOpen() {
    const std::wstring databases = GetMessage(kMsgDatabaseFiles);
    const std::wstring word = Trim(databases.substr(0, databases.find_first_of(L"|(")));
    return word + L" (*.ve2;*.vew)|*.ve2;*.vew|" + GetMessage(kMsgLegacyFiles);
}

// Offers the copy of a database with the older extension. `path` becomes the copy's, and the
// ship's name in the copy and in `bsd` its folder's. False when the user cancelled, or the copy
// failed.
bool OfferCopy(std::wstring& path, BasicShipData& bsd) {
    const std::wstring question = WithAdvice(kCopyQuestion, BoxText(kMsgOldExtensionAdvice));
    if (!shell.view.askYesNo(question)) return true;
    const std::wstring baseName = BaseNameOf(path);
    const std::wstring copy = AskForFile({.command = ME_FileSaveAs,
                                          .types = GetMessage(kMsgDatabaseFiles),
                                          .proposed = baseName + L".ve2",
                                          .directory = shell.settings.WorkDirectory,
                                          .toSave = true});
    if (copy.empty() || !RequireOtherFile(copy) || !PutFile(path, copy, ReplacementBy(path))) {
        return false;
    }
    if (LowerCase(baseName) == kOldDefaultName) {
        bsd.Titles(5).Assign(CleanFileName(DirectoryOf(path)));
        SaveBsdToDatabase(copy, bsd);
    }
    path = copy;
    return true;
}

void Open(std::wstring path) {
    if (FileExtension(path) == kLegacyExtension) return OpenLegacyDatabase(path);
    if (!RequireNoShipDataFile(path) || !RequireNoLeftOver(path)) return;
    BasicShipData bsd;
    const bool hasBsd = LoadBsdFromDatabase(path, bsd);
    if (!hasBsd && !IsDatabaseFile(path)) return;
    if (FileExtension(path) == kOldExtension && !OfferCopy(path, bsd)) return;
    ShowDatabase(path, bsd);
}

}  // namespace

void ME_FileNew_Click() {
    const std::wstring path = AskForFile({.command = ME_FileNew,
                                          .types = GetMessage(kMsgDatabaseFiles),
                                          .proposed = L"",
                                          .directory = shell.settings.BrowseDirectory,
                                          .toSave = true});
    if (path.empty() || !RequireOtherFile(path)) return;
    BasicShipData bsd = NewBasicShipData(UpperCase(BaseNameOf(path)));
    const auto create = [&bsd](const std::wstring& temporary) {
        return CreateDatabaseFile(temporary, bsd);
    };
    const bool isMade = MakeFile(path, GetMessage(kMsgReplacementByNew), create);
    if (isMade) ShowDatabase(path, bsd);
}

void ME_FileOpen_Click() {
    shell.suppressListEvents = true;
    const std::wstring path = AskForFile({.command = ME_FileOpen,
                                          .types = TypesToOpen(),
                                          .proposed = FileNameOf(shell.database.path),
                                          .directory = shell.settings.WorkDirectory});
    shell.suppressListEvents = false;
    if (!path.empty()) Open(path);
}

void OpenFile(const std::wstring& path) {
    Log(LogKind::kOpen, path);
    Open(path);
}

void OpenDropped(const std::vector<std::wstring>& paths) {
    if (paths.empty()) return;
    const std::wstring& path = paths.front();
    if (paths.size() > 1) {
        return ReportMessage(kMsgOneFileAtATime, {static_cast<int32_t>(paths.size())});
    }
    if (IsDirectory(path)) return ReportMessage(kMsgFolderDropped, {path});
    if (!FileExists(path)) return ReportMessage(kMsgFileMissing, {path}, BoxText(kMsgFileAdvice));
    ShowNextStep();
    OpenFile(path);
}

void ME_FileSaveAs_Click() {
    if (!RequireDatabase()) return;
    const std::wstring source = shell.database.path;
    const std::wstring path = AskForFile({.command = ME_FileSaveAs,
                                          .types = GetMessage(kMsgDatabaseFiles),
                                          .proposed = BaseNameOf(source) + L".ve2",
                                          .directory = shell.settings.BrowseDirectory,
                                          .toSave = true});
    if (path.empty() || !PutFile(source, path, ReplacementBy(source))) return;
    ContinueInCopy(path);
    RefreshMainWindow();
}

void ME_FileSaveLegacy_Click() {
    if (!RequireDatabase()) return;
    const std::wstring& source = shell.database.path;
    if (!IsDatabaseFile(source)) return ReportMessage(kMsgNoDatabase, {source});
    const std::wstring path = AskForFile({.command = ME_FileSaveLegacy,
                                          .types = GetMessage(kMsgLegacyFiles),
                                          .defaultExtension = L"vel",
                                          .proposed = BaseNameOf(source) + L".vel",
                                          .directory = shell.settings.BrowseDirectory,
                                          .toSave = true});
    if (path.empty() || !RequireOtherFile(path)) return;
    SetBusyPointer();
    ExchangeReport report;
    if (SaveAsLegacyDatabase(path, report)) {
        ShowExchange(report, {ME_FileSaveLegacy, path, FormatMessage(kMsgSavedAsLegacy, {path})});
    }
    ResetMousePointer();
}

void ME_FileVersions_Click() {
    VersionChoice choice = ReadVersions();
    if (shell.view.askVersion(choice) && RequireEditable()) RestoreVersion(choice);
}

void ME_FileExportList_Click() {
    const std::wstring path = AskForFile({.command = ME_FileExportList,
                                          .types = GetMessage(kMsgListFiles),
                                          .defaultExtension = L"csv",
                                          .proposed = BaseNameOf(shell.database.path) + L".csv",
                                          .directory = shell.settings.BrowseDirectory,
                                          .toSave = true});
    if (path.empty() || !RequireOtherFile(path)) return;
    const FileEnd end = ExportFile(path, [](const std::wstring& temporary) {
        return WriteTextFile(temporary, WriteListAsCsv);
    });
    if (end == FileEnd::kMade) ReportNote(kMsgListWritten, {ListedCount(), path});
}

void ME_FileExportPicture_Click() {
    std::wstring name = CleanFileName(ShownModelName());
    if (name.empty()) name = BaseNameOf(shell.database.path);
    const std::wstring path = AskForFile({.command = ME_FileExportPicture,
                                          .types = GetMessage(kMsgPictureFiles),
                                          .defaultExtension = L"emf",
                                          .proposed = name + L".emf",
                                          .directory = shell.settings.BrowseDirectory,
                                          .toSave = true});
    if (path.empty() || !RequireOtherFile(path)) return;
    SetBusyPointer();
    const FileEnd end = WritePicture(PictureShown(), path);
    ResetMousePointer();
    if (end == FileEnd::kMade) ReportNote(kMsgPictureWritten, {path});
}

void ME_FileSettings_Click() {
    SettingsChoice choice = ReadSettingsChoice();
    if (shell.view.askSettings(choice)) KeepSettings(choice);
}

void ME_FileQuit_Click() {
    shell.view.closeMainWindow();
}

}  // namespace corvane
