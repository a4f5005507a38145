// A process of its own is the same program once more.
#include <gtest/gtest.h>

#include "platform/win32/win32.h"
#include "tests/faults/holder.h"
#include "tests/faults/scene.h"

namespace corvane::faults {
namespace {

HANDLE StartThisProgram(const std::wstring& arguments) {
    std::wstring line = L"\"" + system::ProgramPath() + L"\" " + arguments;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    // One start in a thousand or two fails under Wine, before a line of the program has run.
    constexpr int kMostStarts = 3;
    BOOL started = FALSE;
    for (int i = 0; i < kMostStarts && !started; ++i) {
        started = CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                 &start, &process);
    }
    EXPECT_TRUE(started);
    CloseHandle(process.hThread);
    return process.hProcess;
}

// A folder in quotation marks; the last backslash would make the mark a part of the name.
std::wstring Quoted(const std::wstring& folder) {
    return L'"' + folder + L"\\\" ";
}

}  // namespace

bool IsKilled(const Scene& scene, const Plan& plan) {
    const std::string& name = scene.edit.name;
    const HANDLE process = StartThisProgram(
        L"--edit " + std::wstring(name.begin(), name.end()) + L' ' + Quoted(scene.folder) +
        Quoted(scene.temporaries) + std::to_wstring(static_cast<int>(plan.fault)) + L' ' +
        std::to_wstring(plan.call));
    DWORD status = 0;
    WaitForSingleObject(process, INFINITE);
    GetExitCodeProcess(process, &status);
    CloseHandle(process);
    return status == kKilledStatus;
}

const int kSharingModes = 8;

// The child inherits the file and what it lets others do; closed here, the child alone has it.
Holder::Holder(const std::wstring& path, int sharing) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, static_cast<DWORD>(sharing),
                                    &inherited, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    process = reinterpret_cast<intptr_t>(StartThisProgram(L"--hold"));
    CloseHandle(file);
}

void Holder::End() {
    if (process == 0) return;
    const auto handle = reinterpret_cast<HANDLE>(process);
    TerminateProcess(handle, 0);
    WaitForSingleObject(handle, INFINITE);
    CloseHandle(handle);
    process = 0;
}

bool WriteInPlace(const std::wstring& path, const std::string& text) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr));
    EXPECT_EQ(written, text.size());
    EXPECT_TRUE(SetEndOfFile(file));
    CloseHandle(file);
    return true;
}

// We read it first.
bool CanBeReplaced(int sharing) {
    return (sharing & kShareRead) != 0 && (sharing & kShareDelete) != 0;
}

}  // namespace corvane::faults
