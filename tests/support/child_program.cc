// A program for tests to start. It writes into "<its own path>.ran" the window style that it was
// started with, or "none", and its command line; "<its own path>.ended" is its last deed. Into
// "<its own path>.times" it writes the performance counter at its start, at its end, and when the
// system made the process. To "<its own path>.starts" it adds a byte.
//
// Words of the command line, also of a file's name in it, are deeds, done in this order:
//   sleep      lasts a while
//   wait       lasts until there is a file "<its own path>.go"
//   delete     deletes the file that is in quotes
//   overwrite  makes it a text of another kind
//   lock       makes it read-only
//   grow       adds the marker of another model to it
//   crash      ends by a fault, and does nothing more
//   code N     ends with this code, and does nothing more
#include <cwchar>
#include <fstream>
#include <string>

#include "platform/win32/win32.h"

namespace {

std::string Bytes(const wchar_t* text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes.data(), size, nullptr, nullptr);
    bytes.pop_back();
    return bytes;
}

std::string WindowStyle() {
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    if ((startup.dwFlags & STARTF_USESHOWWINDOW) == 0) return "none";
    return std::to_string(startup.wShowWindow);
}

long long Counter() {
    LARGE_INTEGER counter{};
    QueryPerformanceCounter(&counter);
    return counter.QuadPart;
}

long long Value(const FILETIME& time) {
    return static_cast<long long>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

// The counter when the system made this process, by the age that the process has at `now`.
long long CounterAtCreation(long long now) {
    FILETIME created{}, exited{}, kernel{}, user{}, present{};
    GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user);
    GetSystemTimeAsFileTime(&present);
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    constexpr long long kFileTimesPerSecond = 10000000;
    return now - (Value(present) - Value(created)) * frequency.QuadPart / kFileTimesPerSecond;
}

bool HasWord(const wchar_t* word) {
    return std::wstring(GetCommandLineW()).find(word) != std::wstring::npos;
}

// What is in quotes on the command line.
std::wstring QuotedFile() {
    const std::wstring commandLine = GetCommandLineW();
    const size_t first = commandLine.find(L'"');
    const size_t last = commandLine.rfind(L'"');
    return first == last ? std::wstring() : commandLine.substr(first + 1, last - first - 1);
}

void Write(const std::wstring& path, const std::string& text) {
    std::ofstream(path.c_str(), std::ios::binary) << text;
}

void DoDeeds(const std::wstring& path) {
    const std::wstring file = QuotedFile();
    const std::wstring signal = path + L".go";
    if (HasWord(L" sleep")) Sleep(400);
    while (HasWord(L" wait") && GetFileAttributesW(signal.c_str()) == INVALID_FILE_ATTRIBUTES) {
        Sleep(5);
    }
    if (HasWord(L" delete")) DeleteFileW(file.c_str());
    if (HasWord(L" overwrite")) Write(file, "no database\r\n");
    if (HasWord(L" grow")) {
        std::ofstream(file.c_str(), std::ios::binary | std::ios::app)
            << "====== CORVANE MODEL ======\r\n";
    }
    if (HasWord(L" lock")) SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    if (HasWord(L" crash")) {
        RaiseException(EXCEPTION_ACCESS_VIOLATION, EXCEPTION_NONCONTINUABLE, 0, nullptr);
    }
    const wchar_t* const code = std::wcsstr(GetCommandLineW(), L" code ");
    if (code != nullptr) ExitProcess(static_cast<UINT>(std::wcstoll(code + 6, nullptr, 0)));
}

}  // namespace

int main() {
    const long long start = Counter();
    const long long created = CounterAtCreation(start);
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    std::ofstream((path + L".starts").c_str(), std::ios::binary | std::ios::app) << '.';
    Write(path + L".ran", WindowStyle() + '\n' + Bytes(GetCommandLineW()));
    DoDeeds(path);
    Write(path + L".ended", "ended");
    Write(path + L".times",
          std::to_string(start) + " " + std::to_string(Counter()) + " " + std::to_string(created));
    return 0;
}
