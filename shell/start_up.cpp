#include "shell/start_up.h"

#include <utility>
#include <vector>

#include "files/file_system.h"
#include "files/paths.h"
#include "files/settings_file.h"
#include "platform/crash.h"
#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/reporters.h"
#include "shell/command_line.h"
#include "shell/commands/bsd_commands.h"
#include "shell/commands/file_commands.h"
#include "shell/crash_reports.h"
#include "shell/database_check.h"
#include "shell/left_overs.h"
#include "shell/legacy_conversion.h"
#include "shell/library_checks.h"
#include "shell/list_settings.h"
#include "shell/picture_facts.h"
#include "shell/program_log.h"
#include "shell/recent_databases.h"
#include "shell/rule_set.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {
namespace {

constexpr wchar_t kRegionalQuestion[] =
    L"Decimal symbol and/or digit grouping symbol are not set correctly in your Windows Regional "
    L"Settings.²Do you want to adjust them automatically ?²²(Program will be closed if you choose "
    L"'No'.)";
constexpr wchar_t kRegionalFailure[] = L"Automatic adjustment for Regional Settings failed";

// Takes the switches off the command line. The path of the file is fixed before anything changes
// the current directory.
StartRequest ReadCommandLine(std::wstring commandLine) {
    StartRequest request;
    shell.jbpMode = SwitchPresent(commandLine, L"/JBP");
    request.check = SwitchPresent(commandLine, L"/check");
    std::vector<std::wstring> noFurtherArguments;
    const std::wstring file =
        ParseCommandLine(commandLine, shell.debugMode, shell.milMode, noFurtherArguments);
    if (!file.empty()) request.file = system::AbsolutePath(file);
    return request;
}

void ShowFirstWindows() {
    shell.view.loadMainWindow();
    if (!shell.debugMode) shell.view.showSplash(shell.title);
    reportView.processPendingMessages();
}

// Notes for the suite's other programs that the shell has been started.
void WriteStartEntry() {
    WriteIniText(GetMessageBytes(kMsgStartSection), GetMessageBytes(kMsgStartKey), "1",
                 SettingsFile());
}

void OpenLegacyFile(const std::wstring& file) {
    shell.view.showMainWindow();
    reportView.unloadSplash();
    OpenLegacyDatabase(file);
}

void LoadStartDatabase(const std::wstring& path) {
    ChangeToDirectory(shell.settings.WorkDirectory);
    if (FileExists(path) && RequireNoLeftOver(path)) LoadDatabase(path);
}

// Not another database, which is open because the file of the request is not.
void CheckAsRequested(const StartRequest& request) {
    if (request.check && IsSameFile(shell.database.path, request.file)) CheckOpenDatabase();
}

void ShowMainWindow() {
    UpdateTitle();
    shell.view.setMainCaption(shell.title);
    RefreshMainWindow();
    shell.view.showMainWindow();
    reportView.unloadSplash();
}

}  // namespace

bool Main(const std::wstring& commandLine) {
    if (!system::ClaimSingleInstance() && GiveWayToRunningInstance(commandLine)) return false;
    return StartUp(commandLine);
}

bool GiveWayToRunningInstance(const std::wstring& commandLine) {
    // The new title keeps this process from looking like the running instance.
    const std::wstring title = std::exchange(shell.title, L"...duplicate instance");
    const StartRequest request = ReadCommandLine(commandLine);
    const HandOver result = shell.view.handToRunningInstance(request);
    shell.title = title;
    if (result == HandOver::kFileNotTaken) ReportMessage(kMsgFileNotHandedOver, {request.file});
    return result != HandOver::kNoWindow ||
           !shell.view.askYesNo(ExpandLineBreaks(GetMessage(kMsgNoWindowOfInstance)));
}

void OpenHandedOver(const StartRequest& request, bool wasAtWork) {
    const std::wstring& file = request.file;
    if (IsDeviceName(file)) return ReportMessage(kMsgDeviceName, {FileNameOf(file)});
    if (wasAtWork && !shell.view.askYesNo(SubstituteArguments(
                         ExpandLineBreaks(GetMessage(kMsgFileHandedOver)), {file}))) {
        return;
    }
    if (!FileExists(file)) return ReportMessage(kMsgFileMissing, {file});
    OpenFile(file);
    CheckAsRequested(request);
}

bool StartUp(const std::wstring& commandLine) {
    StartLog();
    const StartRequest request = ReadCommandLine(commandLine);
    const std::wstring& startFile = request.file;
    const bool doLibrariesFit = CheckLibraryVersions();
    LogLibraries();
    if (!doLibrariesFit || !CheckRegionalSettings()) return false;
    ReadSettings(SettingsFile(), shell.settings);
    ReadListSettings(SettingsFile());
    shell.preview.options = ReadPictureOptions(SettingsFile());
    shell.pages = ReadPageChoice(SettingsFile());
    shell.recent = ReadRecent(SettingsFile());
    shell.windowPlace = ReadWindowPlace(SettingsFile());
    UseHistory();
    ShowFirstWindows();
    shell.startDirectory = system::CurrentDirectory();
    WriteStartEntry();
    std::wstring path = shell.settings.DatabasePath;
    if (IsDeviceName(startFile)) {
        ReportMessage(kMsgDeviceName, {FileNameOf(startFile)});
    } else if (!startFile.empty() && !FileExists(startFile)) {
        ReportMessage(kMsgFileMissing, {startFile}, BoxText(kMsgFileAdvice));
    } else if (FileExtension(startFile) == L"vel") {
        OpenLegacyFile(startFile);
        if (IsDatabaseOpen()) {
            ReportCrashes();
            ChangeToDirectory(shell.settings.WorkDirectory);
            return true;
        }
    } else if (!startFile.empty() && RequireNoShipDataFile(startFile) &&
               RequireNoLeftOver(startFile)) {
        path = startFile;
    }
    LoadStartDatabase(path);
    ShowMainWindow();
    ReportCrashes();
    ReportLeftOvers(shell.database.path);
    if (shell.debugMode) system::CrashIfAsked();
    CheckAsRequested(request);
    return true;
}

bool CheckRegionalSettings() {
    if (IsRegionalOK() != 0) return true;
    const std::wstring question = kRegionalQuestion + (L"²²" + GetMessage(kMsgRegionalNote));
    if (!shell.view.askIrreversible(ExpandLineBreaks(question))) return false;
    if (SetRegionalOK() != 0) return true;
    ReportMessage(kRegionalFailure);
    return false;
}

void ShutDown(bool sessionEnds) {
    // Without an open database the remembered one stays: it may be out of reach only today.
    if (IsDatabaseOpen()) shell.settings.DatabasePath = shell.database.path;
    shell.view.noteWindowPlace(shell.windowPlace);
    const bool isWritten =
        WriteSettings(SettingsFile(), shell.settings) && WriteListSettings(SettingsFile()) &&
        WritePictureOptions(SettingsFile(), shell.preview.options) &&
        WritePageChoice(SettingsFile(), shell.pages) && WriteRecent(SettingsFile(), shell.recent) &&
        WriteWindowPlace(SettingsFile(), shell.windowPlace);
    if (!isWritten && !sessionEnds) {
        ReportMessage(kMsgSettingsNotSaved, {SettingsFilePath()});
    }
    ChangeToDirectory(shell.startDirectory);
    Log(LogKind::kEnd, sessionEnds ? L"with the session" : L"by the user");
}

}  // namespace corvane
