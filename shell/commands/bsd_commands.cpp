#include "shell/commands/bsd_commands.h"

#include <string>

#include "bsd/bsd_file.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "legacy/exchange.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/file_prompt.h"
#include "shell/state.h"
#include "shell/suite_programs.h"

namespace corvane {
namespace {

bool ConfirmErasing() {
    return !IsBsdDefined(shell.database.bsd) ||
           shell.view.askOkCancel(L"You will erase the current BSD !");
}

std::wstring AskForSource() {
    std::wstring path = AskForFile({.command = ME_FileImportBSD,
                                    .types = GetMessage(kMsgBsdFiles),
                                    .defaultExtension = L"bsd",
                                    .proposed = L"",
                                    .directory = shell.settings.BrowseDirectory});
    if (path.empty() || !IsSameFile(path, shell.database.path)) return path;
    ReportMessage(kMsgIsOpenDatabase, {path});
    return {};
}

bool ReadFrom(const std::wstring& path, BasicShipData& bsd) {
    const std::wstring extension = FileExtension(path);
    if (extension == L"bsd") return ImportBsdFile(path, bsd);
    if (extension == L"vel") return RequireLegacyRead(path, LoadBsdFromLegacy(path, bsd));
    return LoadBsdFromDatabase(path, bsd);
}

}  // namespace

void ME_FileBSD_Click() {
    if (!RequireDatabase()) return;
    ProgramRun run;
    run.program = BsdProgramPath();
    if (!RunProgram(run)) return;
    if (HasDatabaseChanged(run)) ReadShipRecordAgain();
    RefreshMainWindow();
    ResetMousePointer();
    ShowStatus(L"");
    if (!IsBsdDefined(shell.database.bsd)) ReportStatus(kMsgInputBsdFirst);
    ReportRun(run);
}

void ME_FileImportBSD_Click() {
    if (!RequireDatabase() || !ConfirmErasing()) return;
    const std::wstring source = AskForSource();
    if (source.empty()) return;
    BasicShipData bsd;
    if (!ReadFrom(source, bsd) || !SaveBsdToDatabase(shell.database.path, bsd)) return;
    AdoptShipRecord(bsd);
    RefreshMainWindow();
}

}  // namespace corvane
