#include "shell/library_checks.h"

#include <algorithm>
#include <array>

#include "files/file_system.h"
#include "files/paths.h"
#include "files/settings_file.h"
#include "platform/bsdvelk.h"
#include "platform/grvelk.h"
#include "platform/ztutil32.h"
#include "platform/ztvelk32.h"
#include "report/reporters.h"
#include "shell/state.h"
#include "text/version.h"

namespace corvane {
namespace {

// For developers, who start the program from somewhere else than its folder.
void ChangeToDebugDirectory() {
    const std::wstring path =
        GetIniString(L"Config", L"Velk_Path", shell.settings.DataDirectory, SettingsFile());
    reportView.showPlainBox(L"Debug : change dir to exe dir : " + path);
    ChangeToDirectory(path);
}

}  // namespace

std::span<const LibraryCheck> LibraryChecks() {
    static const std::array<LibraryCheck, 5> kChecks{{
        {L"GrVelk Data", &GetGrVelkDataVersion, 2.002f, true},
        {L"ZTUtil32", &GetZTUtilVersion, 3.73f, false},
        {L"BsdVelk", &GetBsdVelkVersion, 5.0f, false},
        {L"ZTVelk32", &getztvelk32version, 2.0f, false},
        {L"GrVelk Bulkhead Data", &GetGrVelkBhaVersion, 0.443f, true},
    }};
    return kChecks;
}

bool CheckLibrary(const LibraryCheck& check) {
    const bool callable = check.function->Resolve();
    const float found = callable ? (*check.function)() : 0.0f;
    // A version that is no number fits nothing.
    if (callable && (check.exactly ? found == check.required : found >= check.required)) {
        return true;
    }
    const uint32_t pendingError = callable ? 0 : check.function->error;
    ReportMessage(kMsgLibraryVersion, {check.label, VersionText(found), VersionText(check.required),
                                       L"\r" + std::to_wstring(pendingError)});
    return false;
}

bool CheckLibraryVersions() {
    if (shell.debugMode) ChangeToDebugDirectory();
    return std::ranges::all_of(LibraryChecks(), CheckLibrary);
}

}  // namespace corvane
