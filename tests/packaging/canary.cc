// A library that nobody may load: it leaves its name in a file beside itself. It is compiled
// without the standard library, so that it can have the name of any library of Windows.
#include <windows.h>

extern "C" BOOL WINAPI DllMainCRTStartup(HINSTANCE library, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        static wchar_t path[MAX_PATH + 8];
        const DWORD length = GetModuleFileNameW(library, path, MAX_PATH);
        lstrcpyW(path + length, L".loaded");
        CloseHandle(CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }
    return TRUE;
}
