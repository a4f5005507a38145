// main_window_times PATH: opens a database in the main window, as the program does, and prints the
// number of its models and milliseconds, by the clock and of the processor: the listing of the
// models alone, the refresh of the window until it has been painted, and a click on the model in
// the middle until its preview has been painted; then the same window with 100,000 rows: shown,
// sorted by name and by position, filtered. Each is the median of five.
#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "benchmarks/win32/times.h"
#include "bsd/basic_ship_data.h"
#include "database/listing.h"
#include "platform/system.h"
#include "shell/commands/view_commands.h"
#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/base/own_window.h"
#include "ui/main_window/model_list_view.h"
#include "ui/main_window/windows_view.h"

namespace corvane {
namespace {

Times Median(std::array<Times, 5> times) {
    const auto medianOf = [&](double Times::* time) {
        std::ranges::sort(times, {}, time);
        return times[times.size() / 2].*time;
    };
    return {medianOf(&Times::clock), medianOf(&Times::processor)};
}

template <class Action>
Times Measure(Action action) {
    std::array<Times, 5> times{};
    for (Times& time : times) time = MeasureOnce(action);
    return Median(times);
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

constexpr int kManyRows = 100'000;

// Rows as of so many models, in no order; where their blocks would be does not matter here.
void MakeManyRows() {
    std::vector<ModelRow>& rows = shell.database.rows;
    rows.assign(kManyRows, ModelRow(rows.front()));
    for (int i = 0; i < kManyRows; ++i) {
        ModelRow& row = rows[static_cast<size_t>(i)];
        const int mixed = static_cast<int>(int64_t{i} * 48'271 % kManyRows);
        row.name = L"Transverse section, frame " + std::to_wstring(mixed);
        row.tag = i + 1;
        row.offset = i;
        row.x_m = static_cast<float>(mixed) / 321;
    }
}

// `action` by turns with ShowLinesAgain in the order of the file, which is not measured.
template <class Action>
void MeasureLines(HWND window, const char* what, Action action) {
    std::array<Times, 5> times{};
    for (Times& time : times) {
        SetListFilter(L"");
        SetListOrder({});
        ShowLinesAgain();
        Paint(window);
        time = MeasureOnce([&] {
            action();
            Paint(window);
        });
    }
    Print(what, Median(times));
}

void MeasureManyRows(HWND window) {
    MakeManyRows();
    std::printf("%d rows     clock processor\n", kManyRows);
    MeasureLines(window, "shown", ShowLinesAgain);
    MeasureLines(window, "by name", [] { SortList({ListColumn::kName, false}); });
    MeasureLines(window, "by X", [] { SortList({ListColumn::kX, true}); });
    MeasureLines(window, "filtered", [] { FilterList(L"\"frame 777\" x>100"); });
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
    const bool isClicked = shell.database.currentModel == models / 2 + 5;
    MeasureManyRows(window);
    return isClicked ? 0 : 1;
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
