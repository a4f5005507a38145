#include "ui/main_window/drop.h"

namespace corvane {
namespace {

// Carries the data of a drop from one process to another; the system's headers have no name for it.
constexpr UINT kCopyGlobalData = 0x0049;

}  // namespace

void AcceptDrops(HWND window) {
    for (const UINT message : {UINT{WM_DROPFILES}, kCopyGlobalData}) {
        ChangeWindowMessageFilterEx(window, message, MSGFLT_ALLOW, nullptr);
    }
    DragAcceptFiles(window, TRUE);
}

std::vector<std::wstring> TakeDroppedPaths(HDROP drop) {
    std::vector<std::wstring> paths(DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0));
    for (UINT i = 0; i < paths.size(); ++i) {
        std::wstring& path = paths[i];
        path.resize(DragQueryFileW(drop, i, nullptr, 0) + 1);
        path.resize(DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size())));
    }
    DragFinish(drop);
    return paths;
}

}  // namespace corvane
