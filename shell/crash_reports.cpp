#include "shell/crash_reports.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/crash.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/open_database.h"
#include "shell/program_log.h"

namespace corvane {
namespace {

// Dumps have the time in their names, so that their order is that of the names.
constexpr std::wstring_view kPrefix = L"Corvane ";
constexpr std::wstring_view kNew = L".new.dmp";  // no start has reported it
constexpr std::wstring_view kReported = L".dmp";

std::vector<std::wstring> DumpsIn(const std::wstring& folder) {
    std::vector<std::wstring> names = system::NamesIn(folder);
    std::erase_if(names, [](const std::wstring& name) {
        return !name.starts_with(kPrefix) || !name.ends_with(kReported);
    });
    std::ranges::sort(names);
    return names;
}

// Gives a new dump its lasting name; false for one that is being written.
bool Rename(const std::wstring& folder, std::wstring& name) {
    std::wstring lasting = name.substr(0, name.size() - kNew.size()) + std::wstring(kReported);
    if (system::RenameToNewName(folder + name, folder + lasting) != system::kErrorNone)
        return false;
    name = std::move(lasting);
    return true;
}

void RemoveOldest(const std::wstring& folder, const std::vector<std::wstring>& dumps) {
    const int surplus = static_cast<int>(dumps.size()) - kDumpsKept;
    for (int i = 0; i < surplus; ++i) system::RemoveFile(folder + dumps[static_cast<size_t>(i)]);
}

void Report(const std::wstring& path) {
    system::FileStatus status;
    system::GetFileStatus(path, status);
    const system::LocalTime time = system::LocalTimeOf(status.modified);
    const std::wstring when = system::ShortDateText(time) + L' ' + system::LongTimeText(time);
    if (status.size > 0) return ReportMessage(kMsgCrashed, {when, path});
    ReportMessage(kMsgCrashedWithoutDump, {when, LogPath()});
}

}  // namespace

void CatchCrashes() {
    system::CatchCrashes(LogFolder(), LogPath());
}

void ReportCrashes() {
    const std::wstring folder = LogFolder();
    if (folder.empty()) return;
    std::wstring newest;
    std::vector<std::wstring> dumps = DumpsIn(folder);
    for (std::wstring& name : dumps) {
        if (name.ends_with(kNew) && Rename(folder, name)) newest = folder + name;
    }
    RemoveOldest(folder, dumps);
    if (newest.empty()) return;
    Report(newest);
    // In this run nothing has failed.
    ShowNextStep();
}

}  // namespace corvane
