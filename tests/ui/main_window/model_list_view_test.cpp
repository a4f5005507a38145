// LI_Sections in the main window: what its lines and heads show.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/commands/view_commands.h"
#include "shell/model_list.h"
#include "tests/ui/main_window/open_window.h"
#include "ui/main_window/main_window_state.h"

namespace corvane {
namespace {

using test::OpenWindow;

HWND HeadOf(const OpenWindow& open) {
    return reinterpret_cast<HWND>(SendMessageW(open.Control(LI_Sections), LVM_GETHEADER, 0, 0));
}

// The arrow of each column's head: '^', 'v' or '-'.
std::string Arrows(const OpenWindow& open) {
    std::string arrows;
    for (size_t column = 0; column < ModelColumns().size(); ++column) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(HeadOf(open), HDM_GETITEMW, column, reinterpret_cast<LPARAM>(&item));
        const bool isUp = (item.fmt & HDF_SORTUP) != 0;
        const bool isDown = (item.fmt & HDF_SORTDOWN) != 0;
        arrows += isUp && isDown ? '?' : isUp ? '^' : isDown ? 'v' : '-';
    }
    return arrows;
}

bool IsChecked(const OpenWindow& open, UINT command) {
    return (GetMenuState(GetMenu(open.window), command, MF_BYCOMMAND) & MF_CHECKED) != 0;
}

void Choose(const OpenWindow& open, WPARAM command) {
    SendMessageW(open.window, WM_COMMAND, command, 0);
}

TEST(ModelListView, LinesShowEveryColumnOfTheirModel) {
    const OpenWindow open;
    ASSERT_EQ(open.Rows(), 14);
    const char* const cells[] = {"Corrugated bulkhead, holds 5 and 4", "104.700", "11", "Bulkhead",
                                 "136"};
    for (int column = 0; column < 5; ++column) EXPECT_EQ(open.Cell(10, column), cells[column]);
}

TEST(ModelListView, ArrowAndMarkShowTheOrder) {
    const OpenWindow open;
    EXPECT_EQ(Arrows(open), "-----");
    EXPECT_TRUE(IsChecked(open, ME_ViewFileOrder));
    Choose(open, ME_ViewSortX);
    EXPECT_EQ(Arrows(open), "-^---");
    EXPECT_TRUE(IsChecked(open, ME_ViewSortX));
    EXPECT_FALSE(IsChecked(open, ME_ViewFileOrder));
    EXPECT_FALSE(IsChecked(open, ME_ViewDescending));
    Choose(open, ME_ViewDescending);
    EXPECT_EQ(Arrows(open), "-v---");
    EXPECT_TRUE(IsChecked(open, ME_ViewDescending));
    Choose(open, ME_ViewSortFrame);
    EXPECT_EQ(Arrows(open), "----v");
    Choose(open, ME_ViewFileOrder);
    EXPECT_EQ(Arrows(open), "-----");
    EXPECT_FALSE(IsChecked(open, ME_ViewDescending));
}

TEST(ModelListView, SortingKeepsOneLineSelectedAndInSight) {
    const OpenWindow open;
    open.Resize(700, 460);
    open.SetSelected(12, true);
    ASSERT_EQ(shell.database.currentModel, 13);
    for (const uint16_t command : {ME_ViewSortName, ME_ViewDescending, ME_ViewFileOrder}) {
        Choose(open, command);
        open.HandlePostedMessages();
        const HWND list = open.Control(LI_Sections);
        const int line = open.SelectedRow();
        EXPECT_EQ(open.Cell(line, 2), "13") << command;
        EXPECT_EQ(SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0), 1);
        EXPECT_EQ(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), line);
        RECT place{LVIR_BOUNDS, 0, 0, 0};
        RECT client{};
        SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(line),
                     reinterpret_cast<LPARAM>(&place));
        GetClientRect(list, &client);
        EXPECT_LE(place.bottom, client.bottom);
        EXPECT_GE(place.top, 0);
    }
    EXPECT_EQ(shell.database.currentModel, 13);
}

TEST(ModelListView, NameColumnTakesWhatIsLeftUntilTheUserSizesIt) {
    const OpenWindow open;
    const HWND list = open.Control(LI_Sections);
    const auto width = [&](WPARAM column) {
        return static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, column, 0));
    };
    const auto all = [&] { return width(0) + width(1) + width(2) + width(3) + width(4); };
    const auto sized = [&](WPARAM column, int pixels) {
        SendMessageW(list, LVM_SETCOLUMNWIDTH, column, pixels);
        NMHEADERW end{};
        end.hdr = {HeadOf(open), 0, static_cast<UINT>(HDN_ENDTRACKW)};
        end.iItem = static_cast<int>(column);
        SendMessageW(open.window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&end));
        open.HandlePostedMessages();
    };
    const auto room = [&] {
        RECT client{};
        GetClientRect(list, &client);
        return static_cast<int>(client.right);
    };
    open.Resize(1000, 700);
    sized(1, 90);
    EXPECT_EQ(width(1), 90);
    EXPECT_EQ(all(), room()) << "the names have what is left";
    RefreshMainWindow();
    open.Resize(1100, 700);
    EXPECT_EQ(width(1), 90);
    EXPECT_EQ(all(), room());
    sized(0, 150);
    open.Resize(1000, 700);
    RefreshMainWindow();
    EXPECT_EQ(width(0), 150);
}

TEST(ModelListView, BoxHasTheFilterOfTheLastRun) {
    const OpenWindow open(true, [] { SetListFilter(L"bhd"); });
    EXPECT_EQ(open.Text(TX_Filter), "bhd");
    EXPECT_EQ(open.Text(LB_Count), "3 of 14 models");
    EXPECT_EQ(open.Rows(), 3);
    SetWindowTextW(open.Control(TX_Filter), L"");
    EXPECT_EQ(open.Rows(), 14);
    EXPECT_EQ(open.Text(LB_Count), "14 models");
}

TEST(ModelListView, FilterIsDisabledWithoutADatabase) {
    const OpenWindow open(false);
    EXPECT_FALSE(IsWindowEnabled(open.Control(TX_Filter)));
    EXPECT_EQ(open.Text(LB_Count), "");
}

// ---- Many models -------------------------------------------------------------------------------

constexpr int kMany = 100'000;

void OpenManyModels() {
    std::vector<ModelRow>& rows = shell.database.rows;
    const ModelRow sample = rows.front();
    rows.assign(kMany, sample);
    for (int i = 0; i < kMany; ++i) {
        ModelRow& row = rows[static_cast<size_t>(i)];
        const int mixed = static_cast<int>(int64_t{i} * 48'271 % kMany);
        row.name = L"Transverse section, frame " + std::to_wstring(mixed);
        row.tag = i + 1;
        row.id = std::to_wstring(row.tag);
        row.offset = sample.offset + i;
        row.x_m = static_cast<float>(mixed) / 321;
    }
}

TEST(ModelListView, HundredThousandModelsAreShownSortedAndFiltered) {
    const OpenWindow open;
    ShowWindow(open.window, SW_SHOWNOACTIVATE);
    OpenManyModels();
    ShowLinesAgain();
    ASSERT_EQ(open.Rows(), kMany);
    EXPECT_EQ(open.Cell(kMany - 1, 2), "100000");
    SortList({ListColumn::kName, false});
    EXPECT_EQ(open.Cell(0, 0), "Transverse section, frame 0");
    EXPECT_EQ(open.Cell(kMany - 1, 0), "Transverse section, frame 99999");
    SortList({ListColumn::kX, true});
    EXPECT_EQ(open.Cell(0, 0), "Transverse section, frame 99999");
    FilterList(L"\"frame 777\" x>100");
    EXPECT_EQ(open.Rows(), 100) << "frames 77700 to 77799";
    FilterList(L"");
    EXPECT_EQ(open.Rows(), kMany);
}

// ---- More than one selected --------------------------------------------------------------------

// As Shift and a click on a line do.
void SelectToo(const OpenWindow& open, int line) {
    open.SetState(line, LVIS_SELECTED, LVIS_SELECTED);
    open.HandlePostedMessages();
}

TEST(ModelListView, SeveralLinesCanBeSelectedAndThePreviewFollowsTheFocus) {
    const OpenWindow open;
    open.SetSelected(4, true);
    SelectToo(open, 9);
    SelectToo(open, 11);
    EXPECT_EQ(open.Text(LB_Count), "14 models, 3 selected");
    EXPECT_EQ(shell.database.currentModel, 5);
    EXPECT_EQ(shell.view.selectedLines(), (std::vector<int>{4, 9, 11}));
    EXPECT_EQ(shell.view.selectedLine(), 4);
    EXPECT_FALSE(IsWindowEnabled(open.Control(BT_Open)));
    EXPECT_FALSE(IsWindowEnabled(open.Control(BT_Rule)));
    EXPECT_TRUE(open.MenuGreyed(ME_SectionInput, MF_BYCOMMAND));
    EXPECT_FALSE(open.MenuGreyed(ME_SectionCopy, MF_BYCOMMAND));
    EXPECT_FALSE(open.MenuGreyed(ME_SectionRemove, MF_BYCOMMAND));
}

TEST(ModelListView, SelectAllSelectsTheLinesThatAreShown) {
    const OpenWindow open;
    FilterList(L"section");
    Choose(open, ME_EditSelectAll);
    EXPECT_EQ(open.Text(LB_Count), "9 of 14 models, 9 selected");
    EXPECT_EQ(shell.view.selectedCount(), 9);
    EXPECT_EQ(shell.database.currentModel, 1);
    RefreshMainWindow();
    EXPECT_EQ(shell.view.selectedLines(), std::vector<int>{0}) << "the current model alone";
    EXPECT_EQ(open.Text(LB_Count), "9 of 14 models");
    EXPECT_TRUE(IsWindowEnabled(open.Control(BT_Open)));
}

TEST(ModelListView, StatusLineSaysWhyAnItemIsGreyWhileTheMenuIsOpen) {
    const OpenWindow open;
    SelectToo(open, 3);
    reportView.setStatusCaption(L"fault");
    reportView.setStatusColour(StatusColour::kRed);
    const auto highlight = [&](UINT item, UINT flags) {
        SendMessageW(open.window, WM_MENUSELECT, MAKEWPARAM(item, flags), 0);
    };
    highlight(ME_SectionInput, MF_GRAYED);
    EXPECT_EQ(open.Text(PAN_Help), "2 models are selected: this command works on one");
    highlight(ME_EditRedo, MF_GRAYED);
    EXPECT_EQ(open.Text(PAN_Help), "There is nothing to redo");
    highlight(ME_SectionCopy, 0);
    EXPECT_EQ(open.Text(PAN_Help), "fault");
    highlight(ME_SectionVelkRule, MF_GRAYED);
    highlight(0, 0xFFFF);
    EXPECT_EQ(open.Text(PAN_Help), "fault");
    EXPECT_EQ(StateOfMainWindow(open.window)->statusColour, StatusColour::kRed);
}

TEST(ModelListView, ADatabaseWithoutModelsHasNoLine) {
    const OpenWindow open;
    open.SetSelected(3, true);
    AdoptDatabase(test::DataPath("golden/new_database.ve2"), {});
    RefreshMainWindow();
    EXPECT_EQ(open.Rows(), 0);
    EXPECT_EQ(open.SelectedRow(), -1);
}

}  // namespace
}  // namespace corvane
