#include "platform/crash.h"

#include <cstdlib>
#include <exception>

#include "platform/win32/crash_codes.h"
#include "platform/win32/native.h"
#include "platform/win32/win32.h"
// windows.h must come first.
#include <dbghelp.h>

#include <csignal>

namespace corvane::system {
namespace {

constexpr size_t kLongestPath = 4096;
constexpr size_t kLongestName = 64;
// For what follows a stack overflow.
constexpr ULONG kStackReserve = 64 * 1024;
constexpr DWORD kPatience = 60000;  // ms, for a dump

// All that a crash needs, in fixed room: the heap may be what is damaged.
struct CrashRecord {
    wchar_t folder[kLongestPath];
    wchar_t log[kLongestPath];
    wchar_t name[kLongestName];                 // of the dump
    wchar_t path[kLongestPath + kLongestName];  // of the dump
    char line[256];                             // of the log
    decltype(::MiniDumpWriteDump)* writeDump;
    ULONG_PTR programBegin, programEnd;  // addresses
    LONG timesBegun;
    EXCEPTION_POINTERS* exception;
    DWORD thread;  // that has crashed
    bool isLeft;   // its dump and its line
};

CrashRecord& TheCrash() {
    static CrashRecord record;
    return record;
}

const char* NameOf(DWORD code) {
    switch (code) {
        case kAborted:
            return "abort";
        case kTerminated:
            return "terminate";
        default:
            return "exception";
    }
}

// One write, as all entries are made.
void AddLine(const wchar_t* path, const char* line) {
    const HANDLE file = CreateFileW(path, FILE_APPEND_DATA | SYNCHRONIZE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    WriteFile(file, line, static_cast<DWORD>(lstrlenA(line)), &written, nullptr);
    CloseHandle(file);
}

// The place in the program's own file, or the address of what is not the program's.
void LogCrash(CrashRecord& crash, const SYSTEMTIME& now) {
    const EXCEPTION_RECORD& record = *crash.exception->ExceptionRecord;
    const auto address = reinterpret_cast<ULONG_PTR>(record.ExceptionAddress);
    const bool isOurs = address >= crash.programBegin && address < crash.programEnd;
    wsprintfA(crash.line, "%04d-%02d-%02d %02d:%02d:%02d %u crash %s %08X at %s%p, dump '%S'\r\n",
              now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond,
              GetCurrentProcessId(), NameOf(record.ExceptionCode), record.ExceptionCode,
              isOurs ? "the program + " : "", address - (isOurs ? crash.programBegin : 0),
              crash.name);
    AddLine(crash.log, crash.line);
}

// The new file of the dump, which nobody else can open until it is whole.
HANDLE MakeDumpFile(CrashRecord& crash, const SYSTEMTIME& now) {
    wsprintfW(crash.name, L"Corvane %04d-%02d-%02d %02d%02d%02d %u.new.dmp", now.wYear, now.wMonth,
              now.wDay, now.wHour, now.wMinute, now.wSecond, GetCurrentProcessId());
    lstrcpyW(crash.path, crash.folder);
    lstrcatW(crash.path, crash.name);
    CreateDirectoryW(crash.folder, nullptr);
    return CreateFileW(crash.path, GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

DWORD WINAPI LeaveDump(void*) {
    CrashRecord& crash = TheCrash();
    SYSTEMTIME now;
    GetLocalTime(&now);
    const HANDLE file = MakeDumpFile(crash, now);
    // First: should the dump fail, this is all that there is.
    LogCrash(crash, now);
    if (file == INVALID_HANDLE_VALUE) return 0;
    MINIDUMP_EXCEPTION_INFORMATION information{crash.thread, crash.exception, FALSE};
    if (crash.writeDump != nullptr) {
        crash.writeDump(GetCurrentProcess(), GetCurrentProcessId(), file,
                        static_cast<MINIDUMP_TYPE>(MiniDumpNormal | MiniDumpWithThreadInfo),
                        &information, nullptr, nullptr);
    }
    CloseHandle(file);
    return 0;
}

// A full stack has no room for the dump; another thread has one of its own.
void LeaveDumpOfFullStack() {
    const HANDLE thread = CreateThread(nullptr, 0, LeaveDump, nullptr, 0, nullptr);
    if (thread == nullptr) return;
    WaitForSingleObject(thread, kPatience);
    CloseHandle(thread);
}

// What the compiler raises for each throw: it ends the process itself when nobody catches it.
bool IsThrow(const EXCEPTION_RECORD& record) {
    constexpr DWORD kMask = 0x20FFFFFF;
    constexpr DWORD kThrow = 0x20474343;
    return (record.ExceptionCode & kMask) == kThrow &&
           (record.ExceptionFlags & EXCEPTION_NONCONTINUABLE) == 0;
}

bool IsOfFullStack(const EXCEPTION_RECORD& record) {
    return record.ExceptionCode == EXCEPTION_STACK_OVERFLOW;
}

// A fault while the dump is written ends the process; one of another thread waits for that end.
LONG WINAPI OnCrash(EXCEPTION_POINTERS* exception) {
    if (IsThrow(*exception->ExceptionRecord)) return EXCEPTION_CONTINUE_EXECUTION;
    CrashRecord& crash = TheCrash();
    if (crash.isLeft && crash.thread == GetCurrentThreadId()) return EXCEPTION_CONTINUE_SEARCH;
    if (InterlockedIncrement(&crash.timesBegun) > 1) {
        if (crash.thread != GetCurrentThreadId()) Sleep(kPatience);
        TerminateProcess(GetCurrentProcess(), exception->ExceptionRecord->ExceptionCode);
    }
    crash.exception = exception;
    crash.thread = GetCurrentThreadId();
    if (IsOfFullStack(*exception->ExceptionRecord)) {
        LeaveDumpOfFullStack();
    } else {
        LeaveDump(nullptr);
    }
    crash.isLeft = true;
    return EXCEPTION_CONTINUE_SEARCH;
}

// What is left of a full stack may be too little for the system's search for somebody who handles
// the exception, so that this comes before it.
LONG WINAPI OnFullStack(EXCEPTION_POINTERS* exception) {
    const bool isFull = IsOfFullStack(*exception->ExceptionRecord);
    return isFull ? OnCrash(exception) : EXCEPTION_CONTINUE_SEARCH;
}

// Ends the process as a fault of the processor does, so that the system notices, too.
[[noreturn]] void EndBy(DWORD code) {
    RaiseException(code, EXCEPTION_NONCONTINUABLE, 0, nullptr);
    TerminateProcess(GetCurrentProcess(), code);
    for (;;) Sleep(INFINITE);
}

void OnAbort(int) {
    EndBy(kAborted);
}

void OnTerminate() {
    EndBy(kTerminated);
}

void NoteProgram(CrashRecord& crash) {
    const auto* base = reinterpret_cast<const char*>(GetModuleHandleW(nullptr));
    const auto* dosHeader = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dosHeader->e_lfanew);
    crash.programBegin = reinterpret_cast<ULONG_PTR>(base);
    crash.programEnd = crash.programBegin + headers->OptionalHeader.SizeOfImage;
}

}  // namespace

void CatchCrashes(const std::wstring& folder, const std::wstring& log) {
    CrashRecord& crash = TheCrash();
    const std::wstring nativeFolder = NativePath(folder);
    const std::wstring nativeLog = NativePath(log);
    if (folder.empty() || nativeFolder.size() >= kLongestPath || nativeLog.size() >= kLongestPath) {
        return;
    }
    lstrcpyW(crash.folder, nativeFolder.c_str());
    lstrcpyW(crash.log, nativeLog.c_str());
    NoteProgram(crash);
    const HMODULE library = LoadLibraryExW(L"dbghelp.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library != nullptr) {
        crash.writeDump =
            AsFunction<decltype(::MiniDumpWriteDump)>(GetProcAddress(library, "MiniDumpWriteDump"));
    }
    ULONG reserve = kStackReserve;
    SetThreadStackGuarantee(&reserve);
    AddVectoredExceptionHandler(TRUE, OnFullStack);
    SetUnhandledExceptionFilter(OnCrash);
    std::set_terminate(OnTerminate);
    std::signal(SIGABRT, OnAbort);
    // Otherwise abort() shows a box of its own first.
    _set_error_mode(_OUT_TO_STDERR);
}

}  // namespace corvane::system
