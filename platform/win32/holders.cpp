// Who has a file open: the system's restart manager knows, whose library is looked for only then.
#include <vector>

#include "platform/system.h"
#include "platform/win32/win32.h"
// windows.h must come first.
#include <restartmanager.h>

namespace corvane::system {
namespace {

struct RestartManager {
    HMODULE library = LoadLibraryExW(L"rstrtmgr.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    decltype(&RmStartSession) startSession = nullptr;
    decltype(&RmRegisterResources) registerResources = nullptr;
    decltype(&RmGetList) getList = nullptr;
    decltype(&RmEndSession) endSession = nullptr;
    bool isThere = false;

    RestartManager() {
        if (library == nullptr) return;
        Find("RmStartSession", startSession);
        Find("RmRegisterResources", registerResources);
        Find("RmGetList", getList);
        Find("RmEndSession", endSession);
        isThere = startSession != nullptr && registerResources != nullptr && getList != nullptr &&
                  endSession != nullptr;
    }
    ~RestartManager() {
        if (library != nullptr) FreeLibrary(library);
    }
    RestartManager(const RestartManager&) = delete;
    RestartManager& operator=(const RestartManager&) = delete;

    template <class Function>
    void Find(const char* name, Function& function) {
        function = AsFunction<std::remove_pointer_t<Function>>(GetProcAddress(library, name));
    }
};

std::wstring NamesOf(const std::vector<RM_PROCESS_INFO>& programs) {
    std::wstring names;
    for (const RM_PROCESS_INFO& program : programs) {
        if (!names.empty()) names += L", ";
        names += program.strAppName;
    }
    return names;
}

}  // namespace

std::wstring ProgramsThatHold(const std::wstring& path) {
    constexpr UINT kMostPrograms = 8;
    const RestartManager manager;
    DWORD session = 0;
    wchar_t key[CCH_RM_SESSION_KEY + 1] = {};
    if (!manager.isThere || manager.startSession(&session, 0, key) != ERROR_SUCCESS) return {};
    const wchar_t* file = path.c_str();
    std::vector<RM_PROCESS_INFO> programs(kMostPrograms);
    UINT needed = 0;
    UINT count = kMostPrograms;
    DWORD reasons = 0;
    const bool isListed =
        manager.registerResources(session, 1, &file, 0, nullptr, 0, nullptr) == ERROR_SUCCESS &&
        manager.getList(session, &needed, &count, programs.data(), &reasons) == ERROR_SUCCESS;
    programs.resize(isListed ? count : 0);
    manager.endSession(session);
    return NamesOf(programs);
}

}  // namespace corvane::system
