// The program's entry: start-up, then the messages of the windows until the main one is closed.
#include "platform/companion.h"
#include "platform/system.h"
#include "shell/crash_reports.h"
#include "shell/start_up.h"
#include "shell/state.h"
#include "ui/base/controls.h"
#include "ui/base/own_window.h"
#include "ui/main_window/accelerators.h"
#include "ui/main_window/menus.h"
#include "ui/main_window/windows_view.h"

namespace corvane {
namespace {

int HandleMessages() {
    const HACCEL keys = CreateKeys();
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        const HWND window = MainHandle();
        if (window != nullptr && RunKey(window, keys, message)) continue;
        if (window != nullptr && !OpensTopMenu(window, message) &&
            IsDialogMessageW(window, &message)) {
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

int Run() {
    RestrictLibrarySearch();
    CatchCrashes();
    INITCOMMONCONTROLSEX controls{sizeof(controls),
                                  ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    UseView(WindowsView());
    try {
        if (!Main(system::RawCommandLine())) return 0;
        return HandleMessages();
    } catch (...) {
        ReportFault();
        return 1;
    }
}

}  // namespace
}  // namespace corvane

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return corvane::Run();
}
