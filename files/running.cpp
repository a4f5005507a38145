#include "files/running.h"

#include <algorithm>

#include "files/file_system.h"
#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/reporters.h"
#include "text/text.h"

namespace corvane {
namespace {

// Size of the buffer for the name in the file prompt.
constexpr size_t kPromptBufferSize = 400;

// A text as a buffer that the library may write into. The contract gives only the file name's
// buffer a size; the others get at least as much room.
std::string LibraryBuffer(const std::wstring& text) {
    std::string bytes = system::AnsiFromWide(text);
    bytes.resize(std::max(bytes.size() + 1, kPromptBufferSize), '\0');
    return bytes;
}

std::wstring FromLibraryBuffer(const std::string& bytes) {
    return CutAtNul(system::WideFromAnsi(bytes));
}

RunResult RunToItsEnd(const std::wstring& commandLine, int16_t windowStyle, bool& childRunning) {
    const std::string bytes = system::AnsiFromWide(commandLine);
    childRunning = true;
    system::ClearLastError();
    const int16_t result = ShellAndWait(bytes.c_str(), windowStyle);
    const system::ErrorNumber lastError = system::LastError();
    childRunning = false;
    if (result != 0) return {system::kErrorNone, result == kProgramCrashed};
    if (ShellAndWait.error != system::kErrorNone) return {ShellAndWait.error};
    // A library that does not say why: mostly there is no such program.
    return {lastError != system::kErrorNone ? lastError : system::kErrorFileNotFound};
}

}  // namespace

RunResult RunAndWait(const std::wstring& commandLine, int16_t windowStyle, bool& childRunning,
                     const std::wstring& workDir) {
    childRunning = false;
    Log(LogKind::kRun, commandLine);
    SetBusyPointer();
    std::wstring remembered;
    if (!workDir.empty()) {
        remembered = system::CurrentDirectory();
        ChangeToDirectory(workDir);
    }
    const RunResult result = RunToItsEnd(commandLine, windowStyle, childRunning);
    if (!workDir.empty()) ChangeToDirectory(remembered);
    ResetMousePointer();
    if (!result.HasRun()) ReportDebugError(L"ExShell (" + commandLine + L")", result.error);
    return result;
}

std::wstring PromptForFileName(FilePrompt& prompt) {
    std::string extension = LibraryBuffer(prompt.defaultExtension);
    std::string title = LibraryBuffer(prompt.title);
    std::string caption = LibraryBuffer(prompt.caption);
    std::string name = system::AnsiFromWide(prompt.fileName);
    name.resize(kPromptBufferSize - 1);
    name.resize(kPromptBufferSize, '\0');
    const bool chosen = ZTUtilPromptForName(extension.data(), title.data(), name.data(),
                                            static_cast<int32_t>(kPromptBufferSize), prompt.flags,
                                            caption.data()) != 0;
    prompt.defaultExtension = FromLibraryBuffer(extension);
    prompt.title = FromLibraryBuffer(title);
    prompt.caption = FromLibraryBuffer(caption);
    prompt.fileName = FromLibraryBuffer(name);
    return chosen ? prompt.fileName : std::wstring();
}

}  // namespace corvane
