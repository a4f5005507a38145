// A program for tests to start. It writes into "<its own path>.ran" the window style that it was
// started with, or "none", and its command line; "<its own path>.ended" is its last deed. The
// argument "sleep" makes it last a while, "crash" ends it by a fault before that.
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

}  // namespace

int main() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    const std::string commandLine = Bytes(GetCommandLineW());
    std::ofstream(std::wstring(path + L".ran").c_str(), std::ios::binary) << WindowStyle() << '\n'
                                                                          << commandLine;
    if (commandLine.find(" crash") != std::string::npos) {
        RaiseException(EXCEPTION_ACCESS_VIOLATION, EXCEPTION_NONCONTINUABLE, 0, nullptr);
    }
    if (commandLine.find(" sleep") != std::string::npos) Sleep(400);
    std::ofstream(std::wstring(path + L".ended").c_str(), std::ios::binary) << "ended";
    return 0;
}
