#include "shell/commands/bsd_commands.h"

#include <string>

#include "bsd/bsd_file.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "legacy/exchange.h"
#include "report/messages.h"
#include "shell/commands/commands.h"
#include "shell/commands/file_commands.h"
#include "shell/file_prompt.h"
#include "shell/state.h"
#include "shell/suite_programs.h"
#include "shell/window_contents.h"

namespace corvane {
namespace {

// Reads the open database's data. While the file can't be read the data stay as they are.
void ReadAgain() {
    const std::wstring& path = shell.settings.DatabasePath;
    BasicShipData bsd;
    if (LoadBsdFromDatabase(path, bsd) || FileExists(path)) shell.bsd = bsd;
}

bool IsErasingWanted() {
    return !IsBsdDefined(shell.bsd) ||
           shell.screen.askOkCancel(L"You will erase the current BSD !");
}

std::wstring AskForSource() {
    std::wstring path = AskForFile({.command = ME_FileImportBSD,
                                    .types = GetMessage(kMsgBsdFiles),
                                    .defaultExtension = L"bsd",
                                    .proposed = L"",
                                    .directory = shell.settings.BrowseDirectory});
    if (path.empty() || !IsSamePath(path, shell.settings.DatabasePath)) return path;
    ReportMessage(kMsgIsOpenDatabase, {path});
    return {};
}

bool ReadFrom(const std::wstring& path, BasicShipData& bsd) {
    const std::wstring extension = FileExtension(path);
    if (extension == L"bsd") return ImportBsdFile(path, bsd);
    if (extension == L"vel") return WasLegacyRead(path, LoadBsdFromLegacy(path, bsd));
    return LoadBsdFromDatabase(path, bsd);
}

}  // namespace

void ME_FileBSD_Click() {
    if (!IsDatabaseThere()) return;
    SetBusyPointer();
    ProgramRun run;
    run.program = BsdProgramPath();
    run.commandLine = BsdCommandLine(run.program);
    if (!RunProgram(run)) return;
    if (HasDatabaseChanged(run)) ReadAgain();
    RefreshMainWindow();
    ResetMousePointer();
    ShowStatus(L"");
    if (!IsBsdDefined(shell.bsd)) ReportStatus(kMsgInputBsdFirst);
    ReportRun(run);
}

void ME_FileImportBSD_Click() {
    if (!IsDatabaseThere() || !IsErasingWanted()) return;
    const std::wstring source = AskForSource();
    if (source.empty()) return;
    BasicShipData bsd;
    if (!ReadFrom(source, bsd) || !SaveBsdToDatabase(shell.settings.DatabasePath, bsd)) return;
    shell.bsd = bsd;
    RefreshMainWindow();
}

}  // namespace corvane
