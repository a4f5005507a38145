// A library and a program that nobody may load: each writes the path of its file into the file that
// the environment variable CORVANE_CANARY names. The program then loads the libraries that its
// command line has.
#include <cstdlib>

#include "platform/win32/win32.h"

namespace {

void Sing(HMODULE module) {
    wchar_t log[MAX_PATH * 2] = L"";
    wchar_t path[MAX_PATH * 2] = L"";
    if (GetEnvironmentVariableW(L"CORVANE_CANARY", log, MAX_PATH * 2) == 0) return;
    const DWORD length = GetModuleFileNameW(module, path, MAX_PATH * 2);
    const HANDLE file = CreateFileW(log, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, path, length * sizeof(wchar_t), &written, nullptr);
    WriteFile(file, L"\n", sizeof(wchar_t), &written, nullptr);
    CloseHandle(file);
}

}  // namespace

#if defined(CANARY_IS_PROGRAM)
int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    Sing(nullptr);
    for (int i = 1; i < __argc; ++i) FreeLibrary(LoadLibraryW(__wargv[i]));
    return 0;
}
#else
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) Sing(module);
    return TRUE;
}
#endif
