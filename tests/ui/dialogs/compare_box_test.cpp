// The box of a comparison as Windows shows it: its lists, its picture, its keys, buttons and sizes.
#include "ui/dialogs/compare_box.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "report/messages.h"
#include "shell/comparison_box.h"
#include "shell/open_database.h"
#include "shell/state.h"
#include "tests/shell/compared_ships.h"
#include "tests/shell/fake_view.h"
#include "tests/ui/dialogs/modal_window.h"
#include "ui/base/control_ids.h"

namespace corvane {
namespace {

using test::FakeView;
using test::Narrow;
using test::Press;
using test::TextOf;
using test::WriteFileBytes;

constexpr int kMany = 30000;

// "ship.ve2" is open, and compared with "other.ve2", what it was before.
struct CompareBox : testing::Test {
    FakeView kept;
    test::FreshSettingsFile settings;
    test::TemporaryFolder folder;
    Comparison comparison;

    CompareBox() {
        comparison.before = folder.File(L"other.ve2");
        comparison.beforeName = L"other.ve2";
        comparison.now = folder.File(L"ship.ve2");
        WriteFileBytes(comparison.before, test::ShipBefore());
        WriteFileBytes(comparison.now, test::ShipNow());
        LoadDatabase(comparison.now);
        RefreshMainWindow();
    }
    void Show(const std::function<void(HWND)>& look) {
        ASSERT_TRUE(CompareFiles(comparison));
        const test::WhenOpen open(kCompareBoxClass, [&look](HWND window) {
            look(window);
            Press(window, IDCANCEL);
        });
        ShowComparison(comparison);
    }
    static std::string Cell(HWND window, int list, int row, int column) {
        wchar_t text[200] = L"";
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 200;
        SendDlgItemMessageW(window, list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                            reinterpret_cast<LPARAM>(&item));
        return Narrow(text);
    }
    static int Count(HWND window, int list) {
        return static_cast<int>(SendDlgItemMessageW(window, list, LVM_GETITEMCOUNT, 0, 0));
    }
    static int SelectedCount(HWND window, int list) {
        return static_cast<int>(SendDlgItemMessageW(window, list, LVM_GETSELECTEDCOUNT, 0, 0));
    }
    static void SetSelected(HWND window, int row, bool isSelected) {
        LVITEMW item{};
        item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        item.state = isSelected ? item.stateMask : 0;
        SendDlgItemMessageW(window, LI_Differing, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                            reinterpret_cast<LPARAM>(&item));
    }
    static void Select(HWND window, int row) {
        SetSelected(window, -1, false);
        SetSelected(window, row, true);
    }
    static void Click(HWND window, int button) {
        SendDlgItemMessageW(window, button, BM_CLICK, 0, 0);
    }
    static bool IsEnabled(HWND window, int id) {
        return IsWindowEnabled(GetDlgItem(window, id)) != FALSE;
    }
    // A key with Ctrl, as the message loop of the dialog gets it.
    static void PressControl(HWND control, WORD key) {
        SetFocus(control);
        BYTE keys[256] = {};
        BYTE before[256] = {};
        GetKeyboardState(before);
        keys[VK_CONTROL] = 0x80;
        SetKeyboardState(keys);
        MSG message{};
        message.hwnd = control;
        message.message = WM_KEYDOWN;
        message.wParam = key;
        CallMsgFilterW(&message, MSGF_DIALOGBOX);
        SetKeyboardState(before);
    }
    // How many pixels of the picture have a colour.
    static int Pixels(HWND window, int32_t colour) {
        const HWND picture = GetDlgItem(window, PIC_Section);
        RECT client{};
        GetClientRect(picture, &client);
        const HDC screen = GetDC(picture);
        const HDC dc = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, client.right, client.bottom);
        const HGDIOBJ before = SelectObject(dc, bitmap);
        SendMessageW(picture, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
        int count = 0;
        for (int y = 0; y < client.bottom; ++y) {
            for (int x = 0; x < client.right; ++x) {
                if (GetPixel(dc, x, y) == static_cast<COLORREF>(colour)) ++count;
            }
        }
        SelectObject(dc, before);
        DeleteObject(bitmap);
        DeleteDC(dc);
        ReleaseDC(picture, screen);
        return count;
    }
};

TEST_F(CompareBox, ShowsSummaryAndWhatDiffersWithTheFirstRowSelected) {
    Show([this](HWND window) {
        EXPECT_EQ(Narrow(WindowText(window)), "Comparison with other.ve2");
        EXPECT_EQ(TextOf(window, LB_Comparison), Narrow(SummaryOf(comparison)));
        ASSERT_EQ(Count(window, LI_Differing), test::kComparedRows);
        EXPECT_EQ(Cell(window, LI_Differing, test::kShipChanged, 2), "Basic Ship Data");
        EXPECT_EQ(Cell(window, LI_Differing, test::kSectionRemoved, 0), "Removed");
        EXPECT_EQ(Cell(window, LI_Differing, test::kSectionRemoved, 4), "68.700");
        EXPECT_EQ(GetFocus(), GetDlgItem(window, LI_Differing));
        EXPECT_EQ(SelectedCount(window, LI_Differing), 1);
        EXPECT_EQ(Count(window, LI_Values), 1);
        EXPECT_EQ(Cell(window, LI_Values, 0, 2), "Aurora Bay");
        EXPECT_EQ(TextOf(window, PIC_Section), Narrow(GetMessage(kMsgShipHasNoPicture)));
    });
}

TEST_F(CompareBox, ValuesAndPictureFollowTheSelectedRow) {
    Show([](HWND window) {
        Select(window, test::kSectionChanged);
        ASSERT_EQ(Count(window, LI_Values), 1);
        EXPECT_EQ(Cell(window, LI_Values, 0, 0), "Panel 5 'Sheer strake', node 2");
        EXPECT_EQ(Cell(window, LI_Values, 0, 3), "21.6");
        EXPECT_EQ(TextOf(window, LB_Compared), Narrow(GetMessage(kMsgBothSections)));
        Select(window, test::kTorsionRemoved);
        EXPECT_EQ(Count(window, LI_Values), 0);
        EXPECT_EQ(TextOf(window, PIC_Section), Narrow(GetMessage(kMsgTorsionLayout)));
        EXPECT_EQ(TextOf(window, LB_Compared), "");
        SetSelected(window, -1, false);
        EXPECT_EQ(Count(window, LI_Values), 0);
        EXPECT_EQ(Pixels(window, kNowColour), 0);
    });
}

TEST_F(CompareBox, PictureHasBothSectionsInTheirColours) {
    Show([](HWND window) {
        Select(window, test::kSectionChanged);
        EXPECT_GT(Pixels(window, kBeforeColour), 500);
        EXPECT_GT(Pixels(window, kNowColour), 500);
        Select(window, test::kSectionAdded);
        EXPECT_EQ(Pixels(window, kBeforeColour), 0);
        EXPECT_GT(Pixels(window, kNowColour), 500);
        Select(window, test::kSectionRemoved);
        EXPECT_GT(Pixels(window, kBeforeColour), 500);
        EXPECT_EQ(Pixels(window, kNowColour), 0);
        Select(window, test::kBulkheadRenamed);
        EXPECT_EQ(Pixels(window, kBeforeColour), 0);
        EXPECT_EQ(TextOf(window, LB_Compared), Narrow(GetMessage(kMsgArrangementNow)));
    });
}

TEST_F(CompareBox, PictureIsZoomedByTheKeysOfTheMainWindow) {
    Show([](HWND window) {
        Select(window, test::kSectionRemoved);
        const int all = Pixels(window, kBeforeColour);
        PressControl(GetDlgItem(window, LI_Differing), VK_OEM_PLUS);
        EXPECT_NE(Pixels(window, kBeforeColour), all);
        PressControl(GetDlgItem(window, LI_Differing), '0');
        EXPECT_EQ(Pixels(window, kBeforeColour), all);
        Select(window, test::kBulkheadRenamed);
        PressControl(GetDlgItem(window, LI_Differing), 'B');
        EXPECT_TRUE(TextOf(window, LB_Compared).starts_with("Bulkhead 1 of "));
    });
}

TEST_F(CompareBox, MarkedPlacesHaveATableBelowThePicture) {
    Show([](HWND window) {
        Select(window, test::kSectionChanged);
        const HWND picture = GetDlgItem(window, PIC_Section);
        const RECT before = test::PlaceIn(window, PIC_Section);
        SendMessageW(picture, WM_KEYDOWN, VK_SPACE, 0);
        EXPECT_TRUE(test::IsShown(window, TX_Facts));
        EXPECT_LT(test::PlaceIn(window, PIC_Section).bottom, before.bottom);
        test::ExpectNothingIsCut(window);
        Select(window, test::kSectionRenamed);
        EXPECT_FALSE(test::IsShown(window, TX_Facts));
        EXPECT_EQ(test::PlaceIn(window, PIC_Section).bottom, before.bottom);
    });
}

TEST_F(CompareBox, ImportCanBePressedOnlyWithAModelOfTheOtherDatabase) {
    Show([](HWND window) {
        EXPECT_FALSE(IsEnabled(window, BT_ImportCompared)) << "the ship record";
        Select(window, test::kSectionAdded);
        EXPECT_FALSE(IsEnabled(window, BT_ImportCompared));
        SetSelected(window, test::kSectionRemoved, true);
        EXPECT_TRUE(IsEnabled(window, BT_ImportCompared));
        Select(window, test::kSectionChanged);
        EXPECT_TRUE(IsEnabled(window, BT_ImportCompared));
        shell.database.isReadOnly = true;
        Select(window, test::kSectionRemoved);
        EXPECT_FALSE(IsEnabled(window, BT_ImportCompared));
    });
}

TEST_F(CompareBox, ImportShowsTheComparisonAsItIsThen) {
    FakeView::answerYes = true;
    Show([](HWND window) {
        Select(window, test::kTorsionRemoved);
        SetFocus(GetDlgItem(window, BT_ImportCompared));
        Click(window, BT_ImportCompared);
        EXPECT_TRUE(TextOf(window, LB_Comparison).starts_with("Models added: 1, removed: 1, "));
        // It is found by its name, under another number.
        EXPECT_EQ(Cell(window, LI_Differing, test::kSectionRemoved, 0), "Other number");
        EXPECT_EQ(Cell(window, LI_Differing, test::kSectionRemoved, 1), "16");
        EXPECT_EQ(Cell(window, LI_Differing, test::kTorsionRemoved, 2), "Hold 6, frame 91");
        // The row in its place is selected.
        EXPECT_EQ(SelectedCount(window, LI_Differing), 1);
        EXPECT_EQ(TextOf(window, LB_Compared), Narrow(GetMessage(kMsgSectionBefore)));
    });
    EXPECT_EQ(FakeView::rows.size(), 14U);
    EXPECT_EQ(FakeView::rows.back().name, L"Torsion model, holds 5 to 3");
}

TEST_F(CompareBox, CopyAllCopiesTheWholeComparison) {
    Show([this](HWND window) {
        Click(window, BT_CopyReport);
        Report report;
        EXPECT_TRUE(ReportOf(comparison, report));
        EXPECT_EQ(FakeView::copied, ReportAsText(report));
    });
}

TEST_F(CompareBox, ControlAAndControlCAreForTheListThatHasTheFocus) {
    Show([](HWND window) {
        const HWND models = GetDlgItem(window, LI_Differing);
        const HWND values = GetDlgItem(window, LI_Values);
        Select(window, test::kSectionChanged);
        PressControl(values, 'C');
        EXPECT_TRUE(FakeView::copied.ends_with(L"\tz [m]\t19.6\t21.6\r\n"));
        PressControl(models, 'C');
        EXPECT_TRUE(FakeView::copied.ends_with(L"\tEngine room, frame 30\tSection\t20.700\r\n"));
        PressControl(models, 'A');
        EXPECT_EQ(SelectedCount(window, LI_Differing), test::kComparedRows);
        EXPECT_EQ(SelectedCount(window, LI_Values), 1);
        FakeView::copied.clear();
        PressControl(GetDlgItem(window, IDCANCEL), 'C');
        EXPECT_EQ(FakeView::copied, L"");
    });
}

TEST_F(CompareBox, WithoutDifferencesItSaysSo) {
    WriteFileBytes(comparison.before, test::ShipNow());
    Show([](HWND window) {
        EXPECT_EQ(TextOf(window, LB_Comparison), "There are no differences. Models: 13.");
        EXPECT_EQ(Count(window, LI_Differing), 0);
        EXPECT_FALSE(IsEnabled(window, BT_ImportCompared));
    });
}

TEST_F(CompareBox, FileThatChangesMeanwhileShowsThat) {
    Show([this](HWND window) {
        WriteFileBytes(comparison.before, test::ShipNow());
        Select(window, test::kSectionChanged);
        EXPECT_EQ(Count(window, LI_Values), 0);
        EXPECT_EQ(TextOf(window, PIC_Section), Narrow(WhyOutdated(comparison)));
        EXPECT_NE(WhyOutdated(comparison), L"");
    });
}

// Every node of a large section has moved.
TEST_F(CompareBox, TenThousandsOfValuesAreShownWithoutDelay) {
    std::vector<std::string> parts = test::PartsOf(test::ShipBefore());
    const std::string label = "------------------ NODES ------------------\r\n";
    const size_t nodes = parts[1].find(label) + label.size();
    std::string before = parts[1];
    std::string now = parts[1];
    std::string rowsBefore;
    std::string rowsNow;
    for (int i = 0; i < kMany; ++i) {
        const std::string row = std::to_string(i) +
                                "\t0\t 1 \t 0 \t 0 \t 0 \t 0 \t 0 \t 0 \t 0 \t 1 "
                                "\t 1 \r\n";
        rowsBefore += " 1 \t1." + row;
        rowsNow += " 1 \t2." + row;
    }
    before.insert(nodes, rowsBefore);
    now.insert(nodes, rowsNow);
    WriteFileBytes(comparison.before, parts[0] + before);
    WriteFileBytes(comparison.now, parts[0] + now);
    Show([](HWND window) {
        ASSERT_EQ(Count(window, LI_Differing), 1);
        EXPECT_GE(Count(window, LI_Values), kMany);
        const DWORD begin = GetTickCount();
        SetSelected(window, -1, false);
        Select(window, 0);
        EXPECT_GE(Count(window, LI_Values), kMany);
        EXPECT_NE(Cell(window, LI_Values, kMany - 1, 2), "");
        EXPECT_LT(GetTickCount() - begin, 3000U);
    });
}

// ---- Window ------------------------------------------------------------------------------------

TEST_F(CompareBox, EnterAndEscClose) {
    for (const WPARAM key : {VK_RETURN, VK_ESCAPE}) {
        ASSERT_TRUE(CompareFiles(comparison));
        const test::WhenOpen open(kCompareBoxClass,
                                  [key](HWND) { test::PressKey(GetFocus(), key); });
        ShowComparison(comparison);
    }
}

TEST_F(CompareBox, ListsAndPictureHaveTheRoomThatTheUserGives) {
    Show([](HWND window) {
        const RECT lists = test::PlaceIn(window, LI_Values);
        const RECT picture = test::PlaceIn(window, PIC_Section);
        RECT all{};
        GetWindowRect(window, &all);
        const auto resize = [window](LONG width, LONG height) {
            SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
            test::ExpectNothingIsCut(window);
        };
        resize(all.right - all.left + 200, all.bottom - all.top + 100);
        EXPECT_EQ(test::PlaceIn(window, LI_Values).right - lists.right, 120);
        EXPECT_EQ(test::PlaceIn(window, LI_Values).bottom - lists.bottom, 100);
        EXPECT_EQ(test::PlaceIn(window, PIC_Section).right - picture.right, 200);
        EXPECT_EQ(test::PlaceIn(window, PIC_Section).bottom - picture.bottom, 100);
        // Not smaller than its buttons need.
        resize(10, 10);
        const RECT least = test::PlaceIn(window, LI_Values);
        EXPECT_GT(least.bottom - least.top, 40);
    });
}

TEST_F(CompareBox, NothingIsCutAtAnyResolution) {
    Show([](HWND window) {
        Select(window, test::kSectionChanged);
        for (const WORD dpi : test::kResolutions) test::ExpectWholeAt(window, dpi);
    });
}

TEST_F(CompareBox, ColumnsNeedNoScrollingToTheSide) {
    Show([](HWND window) {
        for (const int list : {int{LI_Differing}, int{LI_Values}}) {
            const LONG_PTR style = GetWindowLongPtrW(GetDlgItem(window, list), GWL_STYLE);
            EXPECT_EQ(style & WS_HSCROLL, 0) << list;
        }
    });
}

TEST_F(CompareBox, TabGoesThroughTheListsThePictureAndTheButtons) {
    Show([](HWND window) {
        Select(window, test::kSectionChanged);
        HWND control = GetDlgItem(window, LI_Differing);
        for (const int next :
             {int{LI_Values}, int{PIC_Section}, int{BT_ImportCompared}, int{BT_CopyReport},
              int{BT_SaveReport}, IDCANCEL, int{LI_Differing}}) {
            control = GetNextDlgTabItem(window, control, FALSE);
            EXPECT_EQ(GetDlgCtrlID(control), next);
        }
    });
}

}  // namespace
}  // namespace corvane
