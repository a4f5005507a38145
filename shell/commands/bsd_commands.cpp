#include "shell/commands/bsd_commands.h"

#include <string>

#include "bsd/bsd_file.h"
#include "files/paths.h"
#include "legacy/exchange.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/edit_history.h"
#include "shell/exchange_ending.h"
#include "shell/exchange_notes.h"
#include "shell/file_prompt.h"
#include "shell/running_mark.h"
#include "shell/state.h"
#include "shell/suite_programs.h"

namespace corvane {
namespace {

constexpr wchar_t kShipDataExtension[] = L"bsd";

bool ConfirmErasing(const std::wstring& source) {
    const std::wstring advice =
        BoxText(kMsgReplacedDataAdvice, {FileNameOf(shell.database.path), FileNameOf(source)});
    return !IsBsdDefined(shell.database.bsd) ||
           shell.view.askOkCancel(WithAdvice(L"You will erase the current BSD !", advice));
}

std::wstring AskForSource() {
    std::wstring path = AskForFile({.command = ME_FileImportBSD,
                                    .types = GetMessage(kMsgBsdFiles),
                                    .defaultExtension = kShipDataExtension,
                                    .proposed = L"",
                                    .directory = shell.settings.BrowseDirectory});
    return path.empty() || RequireOtherFile(path) ? path : std::wstring();
}

// The data are read again, as the database has them now.
void ShowShipImported(const BasicShipData& read, const std::wstring& source) {
    ExchangeReport report;
    report.hasShip = true;
    BasicShipData saved;
    if (LoadBsdFromDatabase(shell.database.path, saved)) NoteSavedShip(read, saved, report.ship);
    ShowExchange(report, {ME_FileImportBSD, source, FormatMessage(kMsgDataImported, {source})});
}

}  // namespace

void ME_FileBSD_Click() {
    if (!RequireDatabase()) return;
    ProgramRun run;
    run.program = BsdProgramPath();
    if (!RunProgram(run)) return;
    if (HasDatabaseChanged(run)) ReadShipRecordAgain();
    RefreshMainWindow();
    ReportRun(run);
}

void ME_FileImportBSD_Click() {
    if (!RequireDatabase() || !RequireWritableDatabase() || !ConfirmEdit()) return;
    const std::wstring source = AskForSource();
    BasicShipData bsd;
    if (source.empty() || !ReadShipDataOf(source, bsd) || !ConfirmErasing(source)) return;
    const EditName edit(GetMessage(kMsgImportOfShipData));
    const BasicShipData read = bsd;
    if (!SaveBsdToDatabase(shell.database.path, bsd)) return;
    AdoptShipRecord(bsd);
    RefreshMainWindow();
    if (IsBsdDefined(bsd)) ShowShipImported(read, source);
}

bool ReadShipDataOf(const std::wstring& path, BasicShipData& bsd) {
    const std::wstring extension = FileExtension(path);
    if (extension == kShipDataExtension) return ImportBsdFile(path, bsd);
    if (extension == L"vel") return RequireLegacyRead(path, LoadBsdFromLegacy(path, bsd));
    return LoadBsdFromDatabase(path, bsd);
}

bool RequireNoShipDataFile(const std::wstring& path) {
    const bool isShipData = FileExtension(path) == kShipDataExtension;
    if (isShipData) ReportMessage(kMsgShipDataAlone, {path});
    return !isShipData;
}

}  // namespace corvane
