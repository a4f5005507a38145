// The program's entry: start-up, then the messages of the windows until the main one is closed.
#include "app/start_up.h"
#include "app/state.h"
#include "platform/system.h"
#include "ui/windows/control_ids.h"
#include "ui/windows/controls.h"
#include "ui/windows/menus.h"
#include "ui/windows/screen.h"

namespace corvane {
namespace {

int HandleMessages() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        const HWND window = OwnWindow(kMainWindowClass);
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
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_LISTVIEW_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    shell.screen = WindowsScreen();
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
