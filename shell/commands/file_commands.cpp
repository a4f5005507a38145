#include "shell/commands/file_commands.h"

#include <string>

#include "bsd/bsd_file.h"
#include "database/database_file.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "report/messages.h"
#include "shell/commands/commands.h"
#include "shell/file_prompt.h"
#include "shell/state.h"
#include "shell/window_contents.h"
#include "text/text.h"

namespace corvane {
namespace {

constexpr wchar_t kOldExtension[] = L"vew";
constexpr wchar_t kLegacyExtension[] = L"vel";
// Base name of the databases of older versions, whose folder told the ship.
constexpr wchar_t kOldDefaultName[] = L"star";
constexpr wchar_t kCopyQuestion[] =
    L"This file has an old Velk extension. Do you want to make a copy ?";

std::wstring BaseNameOf(const std::wstring& path) {
    return StripExtension(FileNameOf(path));
}

// The prompt's types: the described patterns behind the catalogue's word for databases, then
// legacy databases.
std::wstring TypesToOpen() {
    const std::wstring databases = GetMessage(kMsgDatabaseFiles);
    const std::wstring word = Trim(databases.substr(0, databases.find_first_of(L"|(")));
    return word + L" (*.ve2;*.vew)|*.ve2;*.vew|" + GetMessage(kMsgLegacyFiles);
}

// Shows a database whose data are in `bsd`.
void ShowOpened(const std::wstring& path, const BasicShipData& bsd) {
    shell.settings.DatabasePath = path;
    shell.bsd = bsd;
    shell.currentModel = 1;
    RefreshMainWindow();
}

// Puts a copy of `source` at `target`; a copy onto itself is there already.
bool CopyDatabase(const std::wstring& source, const std::wstring& target) {
    if (IsSamePath(source, target)) return true;
    const ReplaceResult result = PutCopy(source, target);
    if (!result.Done()) ReportMessage(kMsgFileNotMade, {target, system::ErrorText(result.error)});
    return result.Done();
}

// The new file is made elsewhere first: where it can't be put, nothing is left of it.
bool MakeDatabase(const std::wstring& path, BasicShipData& bsd) {
    const std::wstring temporary = TempFileName();
    if (temporary.empty()) {
        ReportMessage(kMsgFileNotMade, {path, system::ErrorText(system::kErrorPathNotFound)});
        return false;
    }
    const bool isMade = CreateDatabaseFile(temporary, bsd) && CopyDatabase(temporary, path);
    KillFile(temporary);
    return isMade;
}

// Offers the copy of a database with the older extension. `path` becomes the copy's, and the
// ship's name in the copy and in `bsd` its folder's. False when the user cancelled, or the copy
// failed.
bool OfferCopy(std::wstring& path, BasicShipData& bsd) {
    if (!shell.screen.askYesNo(kCopyQuestion)) return true;
    const std::wstring baseName = BaseNameOf(path);
    const std::wstring copy = AskForFile({.command = ME_FileSaveAs,
                                          .types = GetMessage(kMsgDatabaseFiles),
                                          .proposed = baseName + L".ve2",
                                          .directory = shell.settings.WorkDirectory,
                                          .toSave = true});
    if (copy.empty() || !CopyDatabase(path, copy)) return false;
    if (LowerCase(baseName) == kOldDefaultName) {
        bsd.Titles(5).Assign(CleanFileName(DirectoryOf(path)));
        SaveBsdToDatabase(copy, bsd);
    }
    path = copy;
    return true;
}

void Open(std::wstring path) {
    if (FileExtension(path) == kLegacyExtension) return shell.screen.openLegacyDatabase(path);
    BasicShipData bsd;
    const bool hasBsd = LoadBsdFromDatabase(path, bsd);
    if (!hasBsd && !IsDatabaseFile(path)) return;
    if (FileExtension(path) == kOldExtension && !OfferCopy(path, bsd)) return;
    ShowOpened(path, bsd);
}

}  // namespace

bool IsDatabaseThere() {
    const std::wstring& path = shell.settings.DatabasePath;
    if (path.empty()) return false;
    const bool isThere = FileExists(path);
    if (!isThere) ReportMessage(kMsgFileMissing, {path});
    return isThere;
}

void ME_FileNew_Click() {
    const std::wstring path = AskForFile({.command = ME_FileNew,
                                          .types = GetMessage(kMsgDatabaseFiles),
                                          .proposed = L"",
                                          .directory = shell.settings.BrowseDirectory,
                                          .toSave = true});
    if (path.empty()) return;
    BasicShipData bsd = NewBasicShipData(UpperCase(BaseNameOf(path)));
    if (!MakeDatabase(path, bsd)) return;
    shell.previewSection = SectionModel();
    ShowOpened(path, bsd);
}

void ME_FileOpen_Click() {
    shell.suppressListEvents = true;
    const std::wstring path = AskForFile({.command = ME_FileOpen,
                                          .types = TypesToOpen(),
                                          .proposed = FileNameOf(shell.settings.DatabasePath),
                                          .directory = shell.settings.WorkDirectory});
    shell.suppressListEvents = false;
    if (!path.empty()) Open(path);
}

void ME_FileSaveAs_Click() {
    if (!IsDatabaseThere()) return;
    const std::wstring source = shell.settings.DatabasePath;
    const std::wstring path = AskForFile({.command = ME_FileSaveAs,
                                          .types = GetMessage(kMsgDatabaseFiles),
                                          .proposed = BaseNameOf(source) + L".ve2",
                                          .directory = shell.settings.BrowseDirectory,
                                          .toSave = true});
    if (path.empty() || !CopyDatabase(source, path)) return;
    shell.settings.DatabasePath = path;
    RefreshMainWindow();
}

void ME_FileQuit_Click() {
    shell.mainWindow->close();
}

}  // namespace corvane
