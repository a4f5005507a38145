#include "shell/recent_databases.h"

#include <algorithm>

#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/commands/file_commands.h"
#include "shell/settings.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {
namespace {

// No texts of the catalogue: a catalogue other than ours does not know them.
constexpr char kSection[] = "Corvane recent";

// Longest path in a menu, in characters.
constexpr size_t kLongestShown = 60;

std::string KeyOf(size_t index) {
    return std::to_string(index + 1);
}

std::wstring ReadPath(const std::wstring& file, size_t index) {
    return GetIniString(system::WideFromAnsi(kSection), system::WideFromAnsi(KeyOf(index)), L"",
                        file);
}

bool IsFileThere(const std::wstring& path) {
    system::FileStatus status;
    return system::GetFileStatus(path, status) == system::kErrorNone && status.exists &&
           !status.isDirectory;
}

bool CanBeKept(const std::wstring& path) {
    return path.size() < kLongestSetting &&
           system::WideFromAnsi(system::AnsiFromWide(path)) == path;
}

// Drive and file stay, with as many folders before the file as there is room for.
std::wstring Shortened(const std::wstring& path) {
    constexpr size_t kRoot = 3;  // "C:\"
    constexpr std::wstring_view kGap = L"...";
    if (path.size() <= kLongestShown) return path;
    const size_t most = kLongestShown - kRoot - kGap.size();
    const size_t name = path.rfind(L'\\');
    const size_t folder = std::min(path.find(L'\\', path.size() - most), name);
    return path.substr(0, kRoot) + std::wstring(kGap) + path.substr(folder);
}

std::wstring CaptionOf(size_t index, const std::wstring& path) {
    std::wstring caption = L'&' + std::to_wstring(index + 1) + L' ';
    for (const wchar_t letter : Shortened(path)) {
        caption += letter;
        if (letter == L'&') caption += letter;
    }
    return caption;
}

}  // namespace

std::vector<std::wstring> ReadRecent(const std::wstring& file) {
    std::vector<std::wstring> paths;
    for (size_t i = 0; i < kRecentCount; ++i) {
        const std::wstring path = ReadPath(file, i);
        if (IsFullPath(path) && !IsDeviceName(path)) paths.push_back(path);
    }
    return paths;
}

bool WriteRecent(const std::wstring& file, const std::vector<std::wstring>& paths) {
    size_t written = 0;
    for (const std::wstring& path : paths) {
        if (!CanBeKept(path) || written == kRecentCount) continue;
        const size_t index = written++;
        if (ReadPath(file, index) == path) continue;
        if (WriteIniText(kSection, KeyOf(index), system::AnsiFromWide(path), file) !=
            system::kErrorNone) {
            return false;
        }
    }
    return true;
}

void NoteRecent(const std::wstring& path) {
    std::vector<std::wstring>& paths = shell.recent;
    if (path.empty() || (!paths.empty() && paths.front() == path)) return;
    std::erase_if(paths, [&](const std::wstring& old) { return EqualsIgnoringCase(old, path); });
    paths.insert(paths.begin(), path);
    if (paths.size() > kRecentCount) paths.resize(kRecentCount);
    shell.view.addToSystemsRecent(path);
}

std::vector<RecentItem> RecentItems() {
    std::vector<RecentItem> items;
    for (const std::wstring& path : shell.recent) {
        const bool isThere = !system::IsOnLocalDisk(path) || IsFileThere(path);
        items.push_back({CaptionOf(items.size(), path), isThere});
    }
    return items;
}

void OpenRecent(size_t index) {
    if (index >= shell.recent.size()) return;
    const std::wstring path = shell.recent[index];
    if (!FileExists(path)) return ReportMessage(kMsgFileMissing, {path}, BoxText(kMsgFileAdvice));
    OpenFile(path);
}

}  // namespace corvane
