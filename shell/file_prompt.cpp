#include "shell/file_prompt.h"

#include <algorithm>

#include "files/file_system.h"
#include "files/paths.h"
#include "files/running.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {
namespace {

// What the prompt of some libraries answers instead of nothing.
constexpr wchar_t kCancelled[] = L"Cancel";

// The answer made absolute while the prompt's directory is the current one.
std::wstring Ask(const FileQuestion& question) {
    FilePrompt prompt;
    prompt.defaultExtension = question.defaultExtension;
    prompt.fileName = question.proposed;
    prompt.caption = MenuCaptionText(FindCommand(question.command)->caption);
    prompt.title = question.types;
    prompt.flags = question.toSave ? -1 : 0;
    const std::wstring answer = PromptForFileName(prompt);
    if (answer.empty() || answer == kCancelled) return {};
    return system::AbsolutePath(answer);
}

std::wstring AskFrom(const FileQuestion& question) {
    if (question.directory.empty()) return Ask(question);
    const std::wstring remembered = system::CurrentDirectory();
    ChangeToDirectory(question.directory);
    std::wstring answer = Ask(question);
    ChangeToDirectory(remembered);
    return answer;
}

bool IsForbidden(wchar_t character) {
    constexpr std::wstring_view kForbidden = L"/*?\"<>|:";
    return character < L' ' || kForbidden.find(character) != std::wstring_view::npos;
}

// A letter that the code page lacks has become "?" on its way through the prompt.
bool HasForbiddenCharacter(std::wstring_view path) {
    if (path.size() >= 2 && path[1] == L':') path.remove_prefix(2);
    return std::any_of(path.begin(), path.end(), IsForbidden);
}

// What is wrong with any name; kMsgNone when nothing is.
constexpr int32_t kMsgNone = 0;

int32_t FaultOfName(const std::wstring& path) {
    if (IsDeviceName(path)) return kMsgDeviceName;
    if (HasForbiddenCharacter(path)) return kMsgNameNotUsable;
    if (path.size() > kLongestPath) return kMsgPathTooLong;
    if (IsDirectory(path)) return kMsgNameOfFolder;
    return kMsgNone;
}

int32_t FaultOfTarget(const std::wstring& path) {
    if (!IsDirectory(DirectoryOf(path))) return kMsgFolderMissing;
    if (IsReadOnlyFile(path)) return kMsgReadOnly;
    return kMsgNone;
}

// False, and reported, when there is a fault.
bool RequireNoFault(int32_t fault, const std::wstring& path) {
    if (fault == kMsgDeviceName) {
        ReportMessage(fault, {FileNameOf(path)});
    } else if (fault == kMsgPathTooLong) {
        ReportMessage(fault, {path, static_cast<int32_t>(path.size())});
    } else if (fault == kMsgFileMissing) {
        ReportMessage(fault, {path}, BoxText(kMsgFileAdvice));
    } else if (fault != kMsgNone) {
        ReportMessage(fault, {path});
    }
    return fault == kMsgNone;
}

bool IsUsable(const std::wstring& path, bool toSave) {
    int32_t fault = FaultOfName(path);
    if (fault == kMsgNone && toSave) fault = FaultOfTarget(path);
    if (fault == kMsgNone && !toSave && !FileExists(path)) fault = kMsgFileMissing;
    return RequireNoFault(fault, path);
}

}  // namespace

std::wstring AskForFile(const FileQuestion& question) {
    std::wstring path = AskFrom(question);
    if (path.empty() || !IsUsable(path, question.toSave)) return {};
    shell.settings.BrowseDirectory = DirectoryOf(path);
    if (!question.toSave) Log(LogKind::kOpen, path);
    return path;
}

bool RequireUsableTarget(const std::wstring& path) {
    return IsUsable(path, true);
}

std::wstring AskForWritableDatabase(const std::wstring& proposed) {
    FilePrompt prompt;
    prompt.defaultExtension = L"ve2";
    prompt.fileName = proposed;
    prompt.caption = L"Save DB as...";
    prompt.title = GetMessage(kMsgDatabaseFiles);
    prompt.flags = -1;
    const std::wstring answer = PromptForFileName(prompt);
    if (answer.empty() || answer == kCancelled) return {};
    std::wstring path = system::AbsolutePath(answer);
    int32_t fault = FaultOfName(path);
    // A read-only file is the edit's to report, which asks again.
    if (fault == kMsgNone && !IsReadOnlyFile(path)) fault = FaultOfTarget(path);
    return RequireNoFault(fault, path) ? path : std::wstring();
}

}  // namespace corvane
