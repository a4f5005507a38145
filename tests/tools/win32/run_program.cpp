#include "tests/tools/run_program.h"

#include "files/paths.h"
#include "platform/system.h"
#include "platform/win32/win32.h"
#include "tests/support/support.h"

namespace corvane::test {
namespace {

// As the C library splits it again: quoted, backslashes before a quote doubled.
std::wstring Quoted(const std::wstring& argument) {
    std::wstring quoted = L"\"";
    size_t backslashes = 0;
    for (const wchar_t character : argument) {
        if (character == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    return quoted.append(backslashes, L'\\') + L'"';
}

HANDLE OpenFor(const std::wstring& path, DWORD access, DWORD creation) {
    SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
    return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                       creation, FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

ProgramRun RunProgram(const std::vector<std::wstring>& arguments) {
    constexpr DWORD kMost_ms = 60'000;
    const TemporaryFolder folder;
    const std::wstring program = DirectoryOf(system::ProgramPath()) + L"corvane.com";
    std::wstring line = Quoted(program);
    for (const std::wstring& argument : arguments) line += L' ' + Quoted(argument);
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = OpenFor(L"NUL", GENERIC_READ, OPEN_EXISTING);
    start.hStdOutput = OpenFor(folder.File(L"out"), GENERIC_WRITE, CREATE_ALWAYS);
    start.hStdError = OpenFor(folder.File(L"err"), GENERIC_WRITE, CREATE_ALWAYS);
    PROCESS_INFORMATION process{};
    ProgramRun run;
    const bool isStarted = CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0,
                                          nullptr, nullptr, &start, &process) != 0;
    for (const HANDLE handle : {start.hStdInput, start.hStdOutput, start.hStdError}) {
        CloseHandle(handle);
    }
    if (!isStarted) return run;
    DWORD status = 0;
    if (WaitForSingleObject(process.hProcess, kMost_ms) != WAIT_OBJECT_0) {
        TerminateProcess(process.hProcess, 1);
    } else if (GetExitCodeProcess(process.hProcess, &status) != 0) {
        run.status = static_cast<int>(status);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    run.out = ReadFileBytes(folder.File(L"out"));
    run.err = ReadFileBytes(folder.File(L"err"));
    return run;
}

}  // namespace corvane::test
