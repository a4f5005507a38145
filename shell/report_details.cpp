#include "shell/report_details.h"

#include "files/settings_file.h"
#include "platform/system.h"
#include "report/messages.h"
#include "shell/library_checks.h"
#include "shell/program_log.h"
#include "shell/state.h"
#include "shell/status_parts.h"
#include "text/text.h"
#include "text/version.h"

namespace corvane {
namespace {

std::wstring ScreenText() {
    Screen screen;
    shell.view.noteScreen(screen);
    return FormatMessage(kMsgScreenDetails, {screen.width, screen.height, screen.dpi});
}

std::wstring LibraryText(const LibraryCheck& check) {
    VersionFunction& version = *check.function;
    const std::wstring found =
        version.Resolve() ? VersionText(version())
                          : FormatMessage(kMsgLibraryNotFound, {system::ErrorText(version.error)});
    return FormatMessage(kMsgLibraryDetails, {check.label, found});
}

std::wstring DatabaseText() {
    if (!IsDatabaseOpen()) return GetMessage(kMsgNoDatabaseOpen);
    const StatusParts parts = CurrentStatusParts();
    return FormatMessage(kMsgDatabaseDetails,
                         {shell.database.path, std::to_wstring(shell.database.stamp.size),
                          parts.models, parts.file});
}

}  // namespace

std::wstring BuildText() {
    return std::to_wstring(8 * sizeof(void*)) + L" bits, " + CORVANE_COMPILER;
}

std::wstring DetailsForReport() {
    std::wstring libraries;
    for (const LibraryCheck& check : LibraryChecks()) libraries += LibraryText(check);
    return WithLineFeeds(FormatMessage(
        kMsgDetails, {shell.title, VersionText(kProgramVersion, true), BuildText(),
                      system::SystemVersion(), ScreenText(), SettingsFilePath(), LogPath(),
                      shell.settings.DataDirectory, libraries, DatabaseText(), shell.lastWarning}));
}

}  // namespace corvane
