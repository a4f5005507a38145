#include "shell/running_mark.h"

#include "files/file_system.h"
#include "files/paths.h"
#include "files/settings_file.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/left_overs.h"
#include "shell/settings.h"
#include "shell/state.h"

namespace corvane {
namespace {

// No texts of the catalogue: a catalogue other than ours does not know them.
constexpr char kSection[] = "Corvane running";
constexpr char kProgramKey[] = "Program";
constexpr char kDatabaseKey[] = "Database";

void Write(const char* key, const std::wstring& value) {
    WriteIniText(kSection, key, system::AnsiFromWide(value), SettingsFile());
}

std::wstring Read(const char* key) {
    return GetIniString(system::WideFromAnsi(kSection), system::WideFromAnsi(key), L"",
                        SettingsFile());
}

}  // namespace

void WriteRunningMark(const std::wstring& program, const std::wstring& database) {
    Write(kDatabaseKey, database);
    Write(kProgramKey, program);
}

void RemoveRunningMark() {
    WriteRunningMark(L"", L"");
}

bool ConfirmEdit() {
    ReportLeftOvers(shell.database.path);
    const std::wstring program = Read(kProgramKey);
    if (program.empty()) return true;
    if (!system::IsProgramRunning(program)) {
        RemoveRunningMark();
        return true;
    }
    const std::wstring database = Read(kDatabaseKey);
    if (!IsSameFile(database, shell.database.path)) return true;
    return shell.view.askIrreversible(
        BoxText(kMsgProgramStillRuns, {FileNameOf(program), FileNameOf(database)}));
}

}  // namespace corvane
