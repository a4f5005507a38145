// main_window_times PATH: opens a database in the main window, as the program does, and prints the
// number of its models and milliseconds, by the clock and of the processor: the listing of the
// models alone, the refresh of the window until it has been painted, and a click on the model in
// the middle until its preview has been painted. Each is the median of five.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

#include "bsd/basic_ship_data.h"
#include "database/listing.h"
#include "platform/system.h"
#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/base/own_window.h"
#include "ui/main_window/model_list_view.h"
#include "ui/main_window/windows_view.h"

namespace corvane {
namespace {

// In milliseconds.
struct Times {
    double clock;
    double processor;  // of this process; Wine's server and the screen are others
};

double ProcessorMilliseconds() {
    FILETIME created{}, ended{}, kernel{}, user{};
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    const auto milliseconds = [](const FILETIME& time) {
        return (static_cast<double>(time.dwHighDateTime) * 4294967296.0 + time.dwLowDateTime) / 1e4;
    };
    return milliseconds(kernel) + milliseconds(user);
}

double Median(std::array<double, 5> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

template <class Action>
Times Measure(Action action) {
    std::array<double, 5> clock{};
    std::array<double, 5> processor{};
    for (size_t i = 0; i < clock.size(); ++i) {
        const double before = ProcessorMilliseconds();
        const auto begin = std::chrono::steady_clock::now();
        action();
        const auto elapsed = std::chrono::steady_clock::now() - begin;
        clock[i] = std::chrono::duration<double, std::milli>(elapsed).count();
        processor[i] = ProcessorMilliseconds() - before;
    }
    return {Median(clock), Median(processor)};
}

void Print(const char* what, const Times& times) {
    std::printf("%-12s %8.1f %8.1f\n", what, times.clock, times.processor);
}

void Paint(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

// Selects the line as the user does: the list notifies the window.
void Click(HWND window, int line) {
    SelectListLine(GetDlgItem(window, LI_Sections), line);
    Paint(window);
}

int MeasureWindow(const std::wstring& path) {
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_LISTVIEW_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    UseView(WindowsView());
    LoadDatabase(path);
    if (!IsBsdDefined(shell.database.bsd)) return 1;
    shell.view.loadMainWindow();
    shell.view.showMainWindow();
    const HWND window = MainHandle();
    RefreshMainWindow();
    Paint(window);

    const auto models = static_cast<int>(ListModelsWithPositions(path).size());
    std::printf("%d models     clock processor\n", models);
    Print("listing", Measure([&] { ListModelsWithPositions(path); }));
    Print("refresh", Measure([&] {
              RefreshMainWindow();
              Paint(window);
          }));
    int line = models / 2;
    Print("click", Measure([&] { Click(window, line++); }));
    return shell.database.currentModel == models / 2 + 5 ? 0 : 1;
}

}  // namespace
}  // namespace corvane

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("main_window_times PATH\n", stderr);
        return 2;
    }
    return corvane::MeasureWindow(corvane::system::WideFromAnsi(arguments[1]));
}
