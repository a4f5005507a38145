#include "shell/commands/help_commands.h"

#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/commands/file_commands.h"
#include "shell/file_prompt.h"
#include "shell/help_pages.h"
#include "shell/new_file.h"
#include "shell/program_log.h"
#include "shell/report_details.h"
#include "shell/state.h"
#include "text/version.h"

namespace corvane {

void ME_HelpAbout_Click() {
    shell.view.showAbout(shell.title + L" v" + VersionText(kProgramVersion, shell.debugMode));
}

void ME_HelpContents_Click() {
    ShowHelp(kHelpContents);
}

void ME_HelpDetails_Click() {
    if (!shell.view.copyText(DetailsForReport(), {})) return ReportMessage(kMsgDetailsNotCopied);
    ReportNote(kMsgDetailsCopied);
}

void ME_HelpLog_Click() {
    const std::wstring folder = LogFolder();
    if (!IsDirectory(folder)) return ReportMessage(kMsgNoLogFolder);
    const system::ErrorNumber error = shell.view.openDocument(folder);
    if (error != system::kErrorNone) {
        ReportMessage(kMsgLogFolderNotOpened, {folder, SystemError{error}});
    }
}

void ME_HelpSample_Click() {
    const std::wstring sample = SamplePath();
    const std::wstring path = AskForFile({.command = ME_HelpSample,
                                          .types = GetMessage(kMsgDatabaseFiles),
                                          .proposed = FileNameOf(sample),
                                          .directory = shell.settings.BrowseDirectory,
                                          .toSave = true});
    if (path.empty() || !RequireOtherFile(path)) return;
    if (!PutFile(sample, path, ReplacementBy(sample))) return;
    OpenFile(path);
}

std::wstring SamplePath() {
    return WithTrailingBackslash(DirectoryOf(system::ProgramPath())) + L"samples\\aurora_bay.ve2";
}

}  // namespace corvane
