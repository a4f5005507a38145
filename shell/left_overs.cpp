#include "shell/left_overs.h"

#include <algorithm>

#include "database/scanning.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/state.h"

namespace corvane {
namespace {

bool HasTextOfDatabase(const std::wstring& path) {
    return HasTemporaryName(path) && IsDatabaseFile(path);
}

// A line about the file. Empty while somebody writes it.
std::wstring Described(const std::wstring& path) {
    system::File file;
    system::FileStamp stamp;
    if (system::OpenForEditing(path, file) != system::kErrorNone) return {};
    const bool isKnown = system::GetFileStamp(file, stamp) == system::kErrorNone;
    system::CloseFile(file);
    if (!isKnown) return {};
    const system::LocalTime time = system::LocalTimeOf(stamp.modified);
    return SubstituteArguments(
        GetMessage(kMsgLeftOver),
        {path, system::ShortDateText(time) + L' ' + system::LongTimeText(time),
         std::to_wstring(stamp.size)});
}

}  // namespace

void ReportLeftOvers(const std::wstring& database) {
    if (database.empty()) return;
    const std::wstring folder = DirectoryOf(database);
    std::wstring lines;
    for (const std::wstring& name : system::NamesIn(folder)) {
        const std::wstring path = folder + name;
        std::vector<std::wstring>& reported = shell.reportedLeftOvers;
        if (!HasTextOfDatabase(path) || std::ranges::count(reported, path) != 0) continue;
        const std::wstring line = Described(path);
        if (line.empty()) continue;
        reported.push_back(path);
        lines += (lines.empty() ? L"" : L"\r") + line;
    }
    if (!lines.empty()) ReportMessage(kMsgLeftOvers, {FileNameOf(database), lines});
}

bool RequireNoLeftOver(const std::wstring& path) {
    const bool isLeftOver = HasTextOfDatabase(path);
    if (isLeftOver) ReportMessage(kMsgIsLeftOver, {path});
    return !isLeftOver;
}

}  // namespace corvane
