// main_window_times PATH: opens a database in the main window, as the program does, and prints the
// number of its models and milliseconds by this process's own clock: the listing of the models
// alone, the refresh of the window until it has been painted, and a click on the model in the
// middle until its preview has been painted. Each is the median of five.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

#include "app/state.h"
#include "bsd/bsd_file.h"
#include "database/database_file.h"
#include "platform/system.h"
#include "ui/commands/main_window.h"
#include "ui/windows/control_ids.h"
#include "ui/windows/list_view.h"
#include "ui/windows/screen.h"

namespace corvane {
namespace {

template <class Action>
double Milliseconds(Action action) {
    std::array<double, 5> times{};
    for (double& time : times) {
        const auto begin = std::chrono::steady_clock::now();
        action();
        const auto elapsed = std::chrono::steady_clock::now() - begin;
        time = std::chrono::duration<double, std::milli>(elapsed).count();
    }
    std::ranges::sort(times);
    return times[times.size() / 2];
}

void Paint(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

// Selects the row as the user does: the list tells the window.
void Click(HWND window, int row) {
    SelectModelRow(GetDlgItem(window, LI_Sections), row);
    Paint(window);
}

int Measure(const std::wstring& path) {
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_LISTVIEW_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    shell.screen = WindowsScreen();
    shell.settings.DatabasePath = path;
    if (!LoadBsdFromDatabase(path, shell.bsd)) return 1;
    shell.screen.loadMainWindow();
    shell.screen.showMainWindow();
    const HWND window = OwnWindow(kMainWindowClass);
    RefreshMainWindow();
    Paint(window);

    const auto models = static_cast<int>(ListModelsWithPositions(path).size());
    const double listing = Milliseconds([&] { ListModelsWithPositions(path); });
    const double refresh = Milliseconds([&] {
        RefreshMainWindow();
        Paint(window);
    });
    int row = models / 2;
    const double click = Milliseconds([&] { Click(window, row++); });
    std::printf("%d models: listing %.1f, refresh %.1f, click %.1f\n", models, listing, refresh,
                click);
    return shell.currentModel == models / 2 + 5 ? 0 : 1;
}

}  // namespace
}  // namespace corvane

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("main_window_times PATH\n", stderr);
        return 2;
    }
    return corvane::Measure(corvane::system::WideFromAnsi(arguments[1]));
}
