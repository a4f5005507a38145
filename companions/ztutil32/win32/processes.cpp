// Starting a program and waiting for its end.
#include <string>

#include "companions/ztutil32/boolean.h"
#include "companions/ztutil32/program_name.h"
#include "platform/system.h"
#include "platform/win32/win32.h"
#include "platform/ztutil32.h"

namespace {

// A request to end the program that came while a child ran; it is passed on afterwards.
struct QuitRequest {
    bool isPending = false;
    int exitCode = 0;
};

// Takes one waiting message of a range. A request to quit comes whatever the range is.
bool TakeMessage(UINT first, UINT last, MSG& message, QuitRequest& quit) {
    if (PeekMessageW(&message, nullptr, first, last, PM_REMOVE) == 0) return false;
    if (message.message != WM_QUIT) return true;
    quit = {true, static_cast<int>(message.wParam)};
    return false;
}

void DropInput(UINT first, UINT last, QuitRequest& quit) {
    MSG message;
    while (TakeMessage(first, last, message, quit)) continue;
}

// Lets windows paint and answer other threads. What was typed or clicked is thrown away, or it
// would reach the windows once the child has ended. One painting at a time, so that a window that
// asks for it for ever cannot keep the child's end unnoticed.
void ServeWindows(QuitRequest& quit) {
    MSG message;
    if (TakeMessage(WM_PAINT, WM_PAINT, message, quit)) DispatchMessageW(&message);
    DropInput(WM_KEYFIRST, WM_KEYLAST, quit);
    DropInput(WM_MOUSEFIRST, WM_MOUSELAST, quit);
    DropInput(WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK, quit);
}

// Wakes up now and then: Windows regards a thread that does not look at its messages for five
// seconds as one that hangs.
void WaitForEnd(HANDLE process) {
    constexpr DWORD kMilliseconds = 1000;
    constexpr DWORD kWakeUp = QS_PAINT | QS_SENDMESSAGE | QS_KEY | QS_MOUSE;
    QuitRequest quit;
    DWORD result = WAIT_TIMEOUT;
    while (result != WAIT_OBJECT_0 && result != WAIT_FAILED) {
        result =
            MsgWaitForMultipleObjectsEx(1, &process, kMilliseconds, kWakeUp, MWMO_INPUTAVAILABLE);
        // Once more after the end, for what came since the last time.
        ServeWindows(quit);
    }
    if (quit.isPending) PostQuitMessage(quit.exitCode);
}

// Whether an exception that nobody handled ended the process: its number is the exit code then.
// Numbers of Windows's own begin with C; a program's own code, even -1, is an ordinary end.
bool HasCrashed(HANDLE process) {
    constexpr DWORD kCppException = 0xE06D7363;
    DWORD exitCode = 0;
    if (GetExitCodeProcess(process, &exitCode) == 0) return false;
    return exitCode >> 28 == 0xC || exitCode == kCppException;
}

bool IsFile(std::wstring_view path) {
    const DWORD attributes = GetFileAttributesW(std::wstring(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// Null when the program cannot be started; the system's error says why.
HANDLE Start(std::wstring commandLine, int16_t windowStyle) {
    const std::wstring program =
        corvane::ztutil::ProgramName(std::wstring_view(commandLine), IsFile);
    if (program.empty()) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return nullptr;
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    if (windowStyle != 0) {
        startup.dwFlags = STARTF_USESHOWWINDOW;
        startup.wShowWindow = static_cast<WORD>(windowStyle);
    }
    PROCESS_INFORMATION child{};
    if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       nullptr, &startup, &child) == 0) {
        return nullptr;
    }
    CloseHandle(child.hThread);
    return child.hProcess;
}

}  // namespace

CORVANE_EXPORT int16_t CORVANE_STDCALL ShellAndWait(const char* commandLine, int16_t windowStyle) {
    if (commandLine == nullptr) return corvane::ztutil::Boolean(false);
    const HANDLE process = Start(corvane::system::WideFromAnsi(commandLine), windowStyle);
    if (process == nullptr) {
        // The caller asks for the error: what follows here must not change it.
        return corvane::ztutil::Boolean(false);
    }
    WaitForEnd(process);
    const bool crashed = HasCrashed(process);
    CloseHandle(process);
    return crashed ? corvane::kProgramCrashed : corvane::ztutil::Boolean(true);
}
