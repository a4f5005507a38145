// The box of a report: its list of any length, what it shows below it, its keys, buttons and sizes.
#include "ui/dialogs/report_box.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/shell/fake_view.h"
#include "tests/ui/dialogs/modal_window.h"
#include "ui/base/control_ids.h"

namespace corvane {
namespace {

using test::FakeView;
using test::Narrow;
using test::Press;
using test::TextOf;

constexpr int kMany = 100000;

Report ReportOfRows(int count) {
    Report report;
    report.title = L"Check of ship.ve2";
    report.summary = L"Faults: 1, warnings: 1, notes: many. Models: 12, lines: 3456.";
    report.fileName = L"ship check";
    report.columns = {{L"Line", L"1000000", true},
                      {L"Severity", L"warning"},
                      {L"What is wrong", L"The line of the model's number is missing"}};
    constexpr Severity kOrder[] = {Severity::kFault, Severity::kWarning, Severity::kNote};
    for (int i = 0; i < count; ++i) {
        report.rows.push_back({{std::to_wstring(i + 1), L"note", L"Text\tof " + std::to_wstring(i)},
                               L"Meaning of " + std::to_wstring(i) + L".\rRemedy.",
                               kOrder[i % 3]});
    }
    return report;
}

struct ReportBox : testing::Test {
    test::FakeView kept;
    Report report = ReportOfRows(5);

    bool Show(const std::function<void(HWND)>& look) {
        const test::WhenOpen open(kReportBoxClass, look);
        return ShowReport(report);
    }
    static HWND ListOf(HWND window) { return GetDlgItem(window, LI_Report); }
    static std::string Cell(HWND window, int row, int column) {
        wchar_t text[200] = L"";
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 200;
        SendMessageW(ListOf(window), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
        return Narrow(text);
    }
    static int ImageOf(HWND window, int row) {
        LVITEMW item{};
        item.mask = LVIF_IMAGE;
        item.iItem = row;
        SendMessageW(ListOf(window), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        return item.iImage;
    }
    static void SetSelected(HWND window, int row, bool isSelected) {
        LVITEMW item{};
        item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        item.state = isSelected ? item.stateMask : 0;
        SendMessageW(ListOf(window), LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
    }
    static void Select(HWND window, int row) {
        SetSelected(window, -1, false);
        SetSelected(window, row, true);
    }
    static int SelectedCount(HWND window) {
        return static_cast<int>(SendMessageW(ListOf(window), LVM_GETSELECTEDCOUNT, 0, 0));
    }
    // A key with Ctrl, as the message loop of the dialog gets it.
    static void PressControl(HWND window, WORD key) {
        BYTE keys[256] = {};
        BYTE before[256] = {};
        GetKeyboardState(before);
        keys[VK_CONTROL] = 0x80;
        SetKeyboardState(keys);
        MSG message{};
        message.hwnd = GetFocus();
        message.message = WM_KEYDOWN;
        message.wParam = key;
        CallMsgFilterW(&message, MSGF_DIALOGBOX);
        SetKeyboardState(before);
        EXPECT_TRUE(IsWindow(window));
    }
};

TEST_F(ReportBox, ShowsSummaryColumnsRowsAndWhatTheFirstRowHasBesides) {
    EXPECT_FALSE(Show([this](HWND window) {
        EXPECT_EQ(Narrow(WindowText(window)), "Check of ship.ve2");
        EXPECT_EQ(TextOf(window, LB_Report), Narrow(report.summary));
        EXPECT_EQ(SendMessageW(ListOf(window), LVM_GETITEMCOUNT, 0, 0), 5);
        EXPECT_EQ(Cell(window, 1, 0), "2");
        EXPECT_EQ(Cell(window, 1, 2), "Text of 1");
        EXPECT_EQ(ImageOf(window, 0), 0);
        EXPECT_EQ(ImageOf(window, 2), 2);
        EXPECT_EQ(TextOf(window, TX_ReportDetails), "Meaning of 0.\r\nRemedy.");
        EXPECT_EQ(GetFocus(), ListOf(window));
        EXPECT_EQ(GetDlgItem(window, BT_ReportAction), nullptr);
        test::PressKey(GetFocus(), VK_ESCAPE);
    }));
}

TEST_F(ReportBox, DetailsFollowTheSelectedRow) {
    Show([](HWND window) {
        Select(window, 3);
        EXPECT_EQ(TextOf(window, TX_ReportDetails), "Meaning of 3.\r\nRemedy.");
        SetSelected(window, -1, false);
        EXPECT_EQ(TextOf(window, TX_ReportDetails), "");
        Select(window, 4);
        Press(window, IDCANCEL);
    });
    EXPECT_EQ(report.selected, 4U);
}

TEST_F(ReportBox, SelectedRowOfTheReportIsSelectedAndInView) {
    report = ReportOfRows(500);
    report.selected = 321;
    Show([](HWND window) {
        EXPECT_EQ(TextOf(window, TX_ReportDetails), "Meaning of 321.\r\nRemedy.");
        const LRESULT top = SendMessageW(ListOf(window), LVM_GETTOPINDEX, 0, 0);
        EXPECT_LE(top, 321);
        EXPECT_GT(top + SendMessageW(ListOf(window), LVM_GETCOUNTPERPAGE, 0, 0), 321);
        Press(window, IDCANCEL);
    });
}

TEST_F(ReportBox, HundredThousandRowsAreShownAtOnce) {
    report = ReportOfRows(kMany);
    const DWORD begin = GetTickCount();
    Show([begin](HWND window) {
        EXPECT_EQ(SendMessageW(ListOf(window), LVM_GETITEMCOUNT, 0, 0), kMany);
        Select(window, kMany - 1);
        EXPECT_EQ(Cell(window, kMany - 1, 0), "100000");
        EXPECT_EQ(TextOf(window, TX_ReportDetails), "Meaning of 99999.\r\nRemedy.");
        EXPECT_LT(GetTickCount() - begin, 3000U);
        Press(window, IDCANCEL);
    });
}

TEST_F(ReportBox, ControlAAndControlCWorkInTheList) {
    Show([this](HWND window) {
        Select(window, 2);
        PressControl(window, 'C');
        EXPECT_EQ(FakeView::copied, ReportAsText(report, {2}));
        PressControl(window, 'A');
        EXPECT_EQ(SelectedCount(window), 5);
        PressControl(window, 'C');
        EXPECT_EQ(FakeView::copied, ReportAsText(report));
        Press(window, IDCANCEL);
    });
}

TEST_F(ReportBox, ControlAInTheFieldSelectsItsTextOnly) {
    Show([](HWND window) {
        const HWND field = GetDlgItem(window, TX_ReportDetails);
        SetFocus(field);
        PressControl(window, 'A');
        DWORD begin = 9;
        DWORD end = 9;
        SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&begin),
                     reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(begin, 0U);
        EXPECT_EQ(end, static_cast<DWORD>(GetWindowTextLengthW(field)));
        EXPECT_EQ(SelectedCount(window), 1);
        test::PressKey(field, VK_ESCAPE);
    });
}

TEST_F(ReportBox, CopyAllCopiesAllRows) {
    Show([this](HWND window) {
        SendDlgItemMessageW(window, BT_CopyReport, BM_CLICK, 0, 0);
        EXPECT_EQ(FakeView::copied, ReportAsText(report));
        Press(window, IDCANCEL);
    });
}

TEST_F(ReportBox, ActionThatIsDoneClosesTheBox) {
    report.action = L"&Repair";
    report.isQuestion = true;
    report.act = [](Report&) { return true; };
    EXPECT_TRUE(Show([](HWND window) {
        EXPECT_EQ(TextOf(window, BT_ReportAction), "&Repair");
        EXPECT_EQ(TextOf(window, IDCANCEL), "Cancel");
        Press(window, BT_ReportAction);
    }));
}

TEST_F(ReportBox, ActionMayChangeWhatTheBoxShows) {
    report.action = L"&Repair...";
    report.act = [](Report& changed) {
        changed = ReportOfRows(2);
        changed.summary = L"Now there are two.";
        return false;
    };
    EXPECT_FALSE(Show([](HWND window) {
        Select(window, 4);
        SetFocus(GetDlgItem(window, BT_ReportAction));
        SendDlgItemMessageW(window, BT_ReportAction, BM_CLICK, 0, 0);
        EXPECT_EQ(SendMessageW(ListOf(window), LVM_GETITEMCOUNT, 0, 0), 2);
        EXPECT_EQ(TextOf(window, LB_Report), "Now there are two.");
        EXPECT_EQ(TextOf(window, TX_ReportDetails), "Meaning of 0.\r\nRemedy.");
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(window, BT_ReportAction)));
        EXPECT_EQ(GetFocus(), GetDlgItem(window, IDCANCEL));
        Press(window, IDCANCEL);
    }));
}

TEST_F(ReportBox, EmptyReportShowsItsSummary) {
    report = ReportOfRows(0);
    report.summary = L"All is well.";
    Show([](HWND window) {
        EXPECT_EQ(TextOf(window, LB_Report), "All is well.");
        EXPECT_EQ(TextOf(window, TX_ReportDetails), "");
        Press(window, IDCANCEL);
    });
}

TEST_F(ReportBox, ListHasTheRoomThatTheUserGives) {
    report.action = L"&Repair...";
    Show([](HWND window) {
        const RECT before = test::PlaceIn(window, LI_Report);
        RECT all{};
        GetWindowRect(window, &all);
        const auto resize = [window](LONG width, LONG height) {
            SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
            test::ExpectNothingIsCut(window);
        };
        resize(all.right - all.left + 200, all.bottom - all.top + 100);
        const RECT after = test::PlaceIn(window, LI_Report);
        EXPECT_EQ(after.right - before.right, 200);
        EXPECT_EQ(after.bottom - before.bottom, 100);
        // Not smaller than its buttons need.
        resize(10, 10);
        const RECT least = test::PlaceIn(window, LI_Report);
        EXPECT_GT(least.bottom - least.top, 60);
        Press(window, IDCANCEL);
    });
}

TEST_F(ReportBox, NothingIsCutAtAnyResolution) {
    report.action = L"&Repair...";
    Show([](HWND window) {
        for (const WORD dpi : test::kResolutions) test::ExpectWholeAt(window, dpi);
        Press(window, IDCANCEL);
    });
}

TEST_F(ReportBox, TabGoesThroughTheListTheFieldAndTheButtons) {
    report.action = L"&Repair...";
    Show([](HWND window) {
        HWND control = ListOf(window);
        for (const int next : {int{TX_ReportDetails}, int{BT_CopyReport}, int{BT_SaveReport},
                               int{BT_ReportAction}, IDCANCEL, int{LI_Report}}) {
            control = GetNextDlgTabItem(window, control, FALSE);
            EXPECT_EQ(GetDlgCtrlID(control), next);
        }
        Press(window, IDCANCEL);
    });
}

}  // namespace
}  // namespace corvane
