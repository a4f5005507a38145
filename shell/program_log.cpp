#include "shell/program_log.h"

#include "files/paths.h"
#include "files/settings_file.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/library_checks.h"
#include "shell/report_details.h"
#include "shell/state.h"
#include "text/version.h"

namespace corvane {
namespace {

constexpr wchar_t kLogName[] = L"corvane.log";

std::wstring LibraryEntry(const LibraryCheck& check) {
    VersionFunction& version = *check.function;
    const std::wstring label = std::wstring(check.label) + L' ';
    if (version.Resolve()) return label + VersionText(version());
    return label + L"not found, system error " + std::to_wstring(version.error);
}

}  // namespace

std::wstring LogFolder() {
    std::wstring portable = PortableFolder();
    if (!portable.empty()) return portable;
    const std::wstring folder = system::LocalDataDirectory();
    return folder.empty() ? folder : folder + L"Corvane\\";
}

std::wstring LogPath() {
    const std::wstring folder = LogFolder();
    return folder.empty() ? folder : folder + kLogName;
}

void StartLog() {
    shell.log = {LogPath()};
    Log(LogKind::kStart, L"Corvane " + VersionText(kProgramVersion, true) + L", " + BuildText());
    Log(LogKind::kStart, system::SystemVersion());
}

void LogLibraries() {
    for (const LibraryCheck& check : LibraryChecks()) Log(LogKind::kStart, LibraryEntry(check));
}

}  // namespace corvane
