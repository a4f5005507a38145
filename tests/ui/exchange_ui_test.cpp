// Sections go to a legacy database and models come from others, through FM_Export and FM_Inport of
// the real program: by the mouse and by the keyboard alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "database/listing.h"
#include "database/scanning.h"
#include "legacy/exchange.h"
#include "tests/ui/file_dialog.h"
#include "tests/ui/main_window_fixture.h"
#include "tests/ui/screenshot.h"

namespace corvane::ui {
namespace {

using test::Narrow;
using test::ReadFileBytes;
using Texts = std::vector<std::string>;

constexpr int kReplace = OP_CreateNew;
constexpr int kCreateNew = OP_CreateNew + 1;

std::wstring ListItem(HWND list, int index) {
    wchar_t text[1024] = L"";
    Send(list, LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
    return text;
}

int ItemCount(HWND list) {
    return static_cast<int>(Send(list, LB_GETCOUNT, 0, 0));
}

Texts Items(HWND list) {
    Texts items;
    for (int i = 0; i < ItemCount(list); ++i) items.push_back(Narrow(ListItem(list, i)));
    return items;
}

bool IsItemSelected(HWND list, int index) {
    return Send(list, LB_GETSEL, static_cast<WPARAM>(index), 0) > 0;
}

// What the screen shows inside of a control.
std::vector<uint32_t> Pixels(HWND control) {
    RECT area{};
    GetWindowRect(control, &area);
    InflateRect(&area, -4, -4);  // without its edge and the frame of the focus
    return CopyScreen(area).pixels;
}

// Clicks on an item with the mouse; `held` is MK_CONTROL or MK_SHIFT.
void Click(HWND list, int index, WPARAM held = 0) {
    RECT place{};
    Send(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
    const LPARAM at = MAKELPARAM(place.left + 20, (place.top + place.bottom) / 2);
    PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON | held, at);
    PostMessageW(list, WM_LBUTTONUP, held, at);
}

void DoubleClickItem(HWND list, int index) {
    RECT place{};
    Send(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
    const LPARAM at = MAKELPARAM(place.left + 20, (place.top + place.bottom) / 2);
    for (const UINT down : {UINT{WM_LBUTTONDOWN}, UINT{WM_LBUTTONDBLCLK}}) {
        PostMessageW(list, down, MK_LBUTTON, at);
        PostMessageW(list, WM_LBUTTONUP, 0, at);
    }
}

// The program with the sample ship open, and other databases beside it.
struct ExchangeTest : MainWindowFixture {
    std::wstring legacy = Copy("aurora_bay.vel", L"ship.vel");

    std::wstring Copy(const char* sample, std::wstring_view name) const {
        std::wstring path = installation.File(name);
        const std::string from = std::string("../samples/") + sample;
        CopyFileW(test::DataPath(from).c_str(), path.c_str(), FALSE);
        return path;
    }
    HWND OpenBox(int command) const {
        Choose(main, command);
        return program.Window(command == ME_SectionExport ? L"FM_Export" : L"FM_Inport");
    }
    HWND OpenBoxByKeys(char letter) const {
        EXPECT_TRUE(ChooseByKeys(program, 'S', static_cast<WORD>(letter)));
        const HWND box = program.Window(letter == 'X' ? L"FM_Export" : L"FM_Inport");
        EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == box; }));
        EXPECT_TRUE(FocusBecomes(box, FIL_Db));
        return box;
    }
    static HWND In(HWND box, int id) { return GetDlgItem(box, id); }
    static void ClickFile(HWND box, const std::wstring& name) {
        const auto index = Send(In(box, FIL_Db), LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                reinterpret_cast<LPARAM>(name.c_str()));
        ASSERT_GE(index, 0) << Narrow(name);
        Click(In(box, FIL_Db), static_cast<int>(index));
    }
    static bool SectionCountBecomes(HWND box, int count) {
        return WaitUntil([&] { return ItemCount(In(box, LI_Sections)) == count; });
    }
    static bool SelectedCountBecomes(HWND box, int count) {
        return WaitUntil([&] { return Send(In(box, LI_Sections), LB_GETSELCOUNT, 0, 0) == count; });
    }
    // Presses OK, which must report something and leave the box.
    void ExpectOkReports(HWND box, const char* text) const {
        PostMessageW(In(box, IDOK), BM_CLICK, 0, 0);
        const Box report = WaitForPlainBox(program);
        EXPECT_EQ(Narrow(report.text), text);
        EXPECT_FALSE(IsWindowEnabled(box)) << "the box can be used below what it reports";
        ASSERT_TRUE(Press(report, IDOK));
        EXPECT_TRUE(WaitUntil([&] { return IsWindowVisible(box) && IsWindowEnabled(box); }));
    }
    void ExpectMainReady(const wchar_t* status) const {
        EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(main) != FALSE; }));
        EXPECT_TRUE(TextBecomes(Control(PAN_Help), status)) << Narrow(TextOf(Control(PAN_Help)));
        EXPECT_EQ(program.FindNow(L"#32770"), nullptr);
    }
    // The report has a row of these cells; then it is closed.
    void ExpectReported(const std::wstring& model, const std::wstring& what) const {
        const HWND report = program.Window(kReportBoxClass);
        ASSERT_NE(report, nullptr);
        const std::vector<Row> rows = Rows(program, In(report, LI_Report));
        const auto isRow = [&](const Row& row) {
            return row.cells.at(0) == model && row.cells.back().starts_with(what);
        };
        EXPECT_TRUE(std::ranges::any_of(rows, isRow)) << Narrow(model);
        PostMessageW(report, WM_COMMAND, IDCANCEL, 0);
        EXPECT_TRUE(HasClosed(report));
    }
    // The sample's sections have a slope that a DOS database does not hold.
    void ExpectExported(const std::wstring& name) const {
        ExpectReported(name, L"A DOS database has no room for these values: side slope 60.");
        ExpectMainReady(
            (L"The section '" + name + L"' was written to '" + legacy + L"'; 1 section was changed")
                .c_str());
    }
    void ExpectImported(const wchar_t* models, const std::wstring& path) const {
        ExpectMainReady((models + (L" imported from '" + path + L"'")).c_str());
    }
    // The names in the legacy database.
    static Texts LegacyNames(const std::wstring& path) {
        int16_t status = -1;
        Texts names;
        for (const ModelEntry& section : ListLegacySections(path, status)) {
            names.push_back(Narrow(section.name));
        }
        EXPECT_EQ(status, 0);
        return names;
    }
    // A slot is there before it has its name, and while the program writes the file it can't be
    // read.
    static bool GetsNewSection(const std::wstring& path, const char* name) {
        return WaitUntil([&] {
            int16_t status = -1;
            const std::vector<ModelEntry> sections = ListLegacySections(path, status);
            return status == 0 && !sections.empty() && Narrow(sections.back().name) == name;
        });
    }
    static float LegacyPosition(const std::wstring& path, int16_t slot) {
        SectionModel section;
        Losses losses;
        EXPECT_TRUE(ImportSection(path, slot, section, losses));
        return section.x_m;
    }
    Texts RowNames() const {
        Texts names;
        for (const Row& row : Rows(program, Control(LI_Sections))) {
            names.push_back(Narrow(row.cells.at(0)));
        }
        return names;
    }
};

// ---- Export ------------------------------------------------------------------------------------

TEST_F(ExchangeTest, ExportByTheKeyboardAlone) {
    HWND box = OpenBoxByKeys('X');
    Type({VK_DOWN});
    EXPECT_TRUE(SectionCountBecomes(box, 9));
    TypeWithAlt('N');
    ASSERT_TRUE(FocusBecomes(box, TX_Name));
    TypeText(L"Frame 30, keys");
    Type({VK_RETURN});
    ASSERT_TRUE(HasClosed(box));
    ASSERT_TRUE(GetsNewSection(legacy, "Frame 30, keys"));
    EXPECT_EQ(LegacyNames(legacy).size(), 10U);
    ExpectExported(L"Frame 30, keys");

    box = OpenBoxByKeys('X');
    Type({VK_DOWN});
    EXPECT_TRUE(SectionCountBecomes(box, 10));
    Type({VK_TAB});
    ASSERT_TRUE(FocusBecomes(box, kCreateNew));
    Type({VK_DOWN});
    ASSERT_TRUE(FocusBecomes(box, kReplace));
    TypeWithAlt('S');
    ASSERT_TRUE(FocusBecomes(box, LI_Sections));
    Type({VK_HOME, VK_DOWN, VK_DOWN});
    EXPECT_TRUE(WaitUntil([&] { return IsItemSelected(In(box, LI_Sections), 2); }));
    Type({VK_RETURN});
    ASSERT_TRUE(HasClosed(box));
    EXPECT_TRUE(WaitUntil([&] { return LegacyPosition(legacy, 3) < 21; }));
    EXPECT_EQ(LegacyNames(legacy).size(), 10U);
    ExpectExported(L"Engine room, frame 30");
}

TEST_F(ExchangeTest, ExportOkReportsWhatIsMissingAndStays) {
    const HWND box = OpenBox(ME_SectionExport);
    ASSERT_NE(box, nullptr);
    ExpectOkReports(box, "Please select a file");
    ClickFile(box, L"ship.vel");
    EXPECT_TRUE(SectionCountBecomes(box, 9));
    PostMessageW(In(box, kReplace), BM_CLICK, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(In(box, LI_Sections)) != FALSE; }));
    ExpectOkReports(box, "Please select a section");
    EXPECT_TRUE(PressButton(box, IDCANCEL));
}

TEST_F(ExchangeTest, DrivesAreChosenByTheKeyboard) {
    const HWND box = OpenBoxByKeys('X');
    const HWND drives = In(box, DRV_Db);
    TypeWithAlt('R');
    ASSERT_TRUE(FocusBecomes(box, DRV_Db));
    Type({'Z'});
    EXPECT_TRUE(WaitUntil([&] { return Items(In(box, DIR_Db)).at(0) == "Z:\\"; }));
    EXPECT_EQ(Narrow(TextOf(drives)), "Z:");
    // An open list counts only when it is closed, and Esc closes it without a choice.
    Type({VK_F4});
    ASSERT_TRUE(WaitUntil([&] { return Send(drives, CB_GETDROPPEDSTATE, 0, 0) != 0; }));
    Type({VK_HOME, VK_ESCAPE});
    EXPECT_TRUE(WaitUntil([&] { return Send(drives, CB_GETDROPPEDSTATE, 0, 0) == 0; }));
    EXPECT_TRUE(IsWindow(box));
    EXPECT_TRUE(WaitUntil([&] { return TextOf(drives) == L"Z:"; }));
    EXPECT_EQ(Items(In(box, DIR_Db)).at(0), "Z:\\");
    Type({VK_F4, VK_HOME, VK_RETURN});
    EXPECT_TRUE(WaitUntil([&] { return Items(In(box, DIR_Db)).at(0) == "C:\\"; }));
    EXPECT_EQ(Narrow(TextOf(drives)), "C:");
    EXPECT_TRUE(IsWindow(box));
    EXPECT_TRUE(PressButton(box, IDCANCEL));
}

TEST_F(ExchangeTest, ExportBoxDrawsWhatIsExportedAndWhatIsReplaced) {
    const HWND box = OpenBoxByKeys('X');
    SetWindowPos(box, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE);
    const HWND picture = In(box, PIC_Section);
    EXPECT_TRUE(WaitUntil([&] { return ShowsASection(picture); }));
    EXPECT_TRUE(TextBecomes(In(box, LB_Service), L"To be exported: Engine room, frame 30"));
    const std::vector<uint32_t> exported = Pixels(picture);
    ClickFile(box, L"ship.vel");
    EXPECT_TRUE(SectionCountBecomes(box, 9));
    PostMessageW(In(box, kReplace), BM_CLICK, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(In(box, LI_Sections)) != FALSE; }));
    Click(In(box, LI_Sections), 4);
    EXPECT_TRUE(TextBecomes(In(box, LB_Service), L"To be replaced: Midship section, hold 4"));
    EXPECT_TRUE(WaitUntil([&] { return Pixels(picture) != exported && ShowsASection(picture); }));
    TypeWithAlt('P');
    EXPECT_TRUE(TextBecomes(In(box, LB_Service), L""));
    EXPECT_TRUE(WaitUntil([&] { return !ShowsASection(picture); }));
    EXPECT_TRUE(PressButton(box, IDCANCEL));
}

// ---- Import ------------------------------------------------------------------------------------

TEST_F(ExchangeTest, BulkheadsOfAnotherDatabaseAreDrawnAndTurned) {
    Copy("aurora_bay.ve2", L"other.ve2");
    const HWND box = OpenBoxByKeys('I');
    SetWindowPos(box, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE);
    const HWND picture = In(box, PIC_Section);
    ClickFile(box, L"other.ve2");
    EXPECT_TRUE(SectionCountBecomes(box, 14));
    Click(In(box, LI_Sections), 10);
    EXPECT_TRUE(TextBecomes(In(box, LB_Service), L"Aurora Bay (Bulk carrier)"));
    // The plating's outline, the stiffeners and the stools of the corrugated bulkhead.
    const auto has = [picture](uint32_t colour, int least) {
        return std::ranges::count(Pixels(picture), colour) > least;
    };
    EXPECT_TRUE(WaitUntil([&] { return has(0x0000FF, 100) && has(0xE4E4E4, 100); }));
    const std::vector<uint32_t> all = Pixels(picture);
    TypeWithControl('B');
    EXPECT_TRUE(
        WaitUntil([&] { return TextOf(In(box, LB_Service)).starts_with(L"Bulkhead 1 of"); }));
    EXPECT_TRUE(WaitUntil([&] { return Pixels(picture) != all; }));
    EXPECT_TRUE(has(0x0000FF, 100));
    Click(In(box, LI_Sections), 13);
    EXPECT_TRUE(WaitUntil([&] { return !has(0x0000FF, 0); })) << "not the bulkhead before";
    EXPECT_TRUE(PressButton(box, IDCANCEL));
}

TEST_F(ExchangeTest, SeveralSectionsOfALegacyDatabaseAreImported) {
    const HWND box = OpenBox(ME_SectionImport);
    ASSERT_NE(box, nullptr);
    SetWindowPos(box, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE);
    EXPECT_EQ(TextOf(box), L"DOS Velk Sections");
    EXPECT_EQ(Items(In(box, FIL_Db)), (Texts{"ship.ve2", "ship.vel"}));
    ClickFile(box, L"ship.vel");
    EXPECT_TRUE(SectionCountBecomes(box, 9));
    EXPECT_TRUE(TextBecomes(In(box, LB_Service), L"Aurora Bay (Bulk carrier)"));
    EXPECT_TRUE(WaitUntil([&] { return ShowsASection(In(box, PIC_Section)); }));
    Click(In(box, LI_Sections), 1);
    Click(In(box, LI_Sections), 3, MK_CONTROL);
    Click(In(box, LI_Sections), 8, MK_CONTROL);
    EXPECT_TRUE(SelectedCountBecomes(box, 3));
    ASSERT_TRUE(PressButton(box, IDOK));
    ASSERT_TRUE(RowCountBecomes(Control(LI_Sections), 17));
    ExpectImported(L"3 sections were", legacy);
    const Texts names = RowNames();
    EXPECT_EQ(Texts(names.begin() + 14, names.end()),
              (Texts{"Hold 7, frame 61", "Hold 5, frame 121", "Fore peak, frame 270"}));
    EXPECT_TRUE(WaitUntil([&] { return SelectedRow(Control(LI_Sections)) == 16; }));
    EXPECT_EQ(CountModels(installation.File(L"ship.ve2")), 17);
}

TEST_F(ExchangeTest, ImportByTheKeyboardAlone) {
    Copy("aurora_bay.vel", L"a.vel");
    const HWND box = OpenBoxByKeys('I');
    Type({VK_DOWN});
    EXPECT_TRUE(SectionCountBecomes(box, 9));
    EXPECT_TRUE(TextBecomes(In(box, LB_Service), L"Aurora Bay (Bulk carrier)"));
    TypeWithAlt('P');
    EXPECT_TRUE(TextBecomes(In(box, LB_Service), L""));
    TypeWithAlt('S');
    ASSERT_TRUE(FocusBecomes(box, LI_Sections));
    TypeWithShift(VK_DOWN);
    EXPECT_TRUE(SelectedCountBecomes(box, 2));
    Type({VK_RETURN});
    ASSERT_TRUE(HasClosed(box));
    ASSERT_TRUE(RowCountBecomes(Control(LI_Sections), 16));
    ExpectImported(L"2 sections were", installation.File(L"a.vel"));
}

TEST_F(ExchangeTest, DoubleClickImportsASectionOrTheFirstOneOfAFile) {
    HWND box = OpenBox(ME_SectionImport);
    ASSERT_NE(box, nullptr);
    ClickFile(box, L"ship.vel");
    EXPECT_TRUE(SectionCountBecomes(box, 9));
    DoubleClickItem(In(box, LI_Sections), 4);
    ASSERT_TRUE(HasClosed(box));
    ASSERT_TRUE(RowCountBecomes(Control(LI_Sections), 15));
    ExpectImported(L"1 section was", legacy);
    EXPECT_EQ(RowNames().back(), "Midship section, hold 4");
    box = OpenBox(ME_SectionImport);
    ASSERT_NE(box, nullptr);
    DoubleClickItem(In(box, FIL_Db), 1);
    ASSERT_TRUE(HasClosed(box));
    ASSERT_TRUE(RowCountBecomes(Control(LI_Sections), 16));
    EXPECT_EQ(RowNames().back(), "Engine room, frame 30");
}

TEST_F(ExchangeTest, OpenDatabaseIsRefusedWhenItIsChosenAndTheBoxGoesOn) {
    const HWND box = OpenBox(ME_SectionImport);
    ASSERT_NE(box, nullptr);
    ClickFile(box, L"ship.ve2");
    const Texts hint{"This is the open database. Choose another file."};
    EXPECT_TRUE(WaitUntil([&] { return Items(In(box, LI_Sections)) == hint; }));
    EXPECT_FALSE(IsWindowEnabled(In(box, LI_Sections)));
    PostMessageW(In(box, IDOK), BM_CLICK, 0, 0);
    const Box refusal = WaitForBox(program);
    EXPECT_NE(Narrow(refusal.text).find("' is the open database itself."), std::string::npos)
        << Narrow(refusal.text);
    ASSERT_TRUE(Press(refusal, IDOK));
    EXPECT_TRUE(WaitUntil([&] { return IsWindowVisible(box) && IsWindowEnabled(box); }));
    ClickFile(box, L"ship.vel");
    EXPECT_TRUE(SectionCountBecomes(box, 9));
    ASSERT_TRUE(PressButton(box, IDOK));
    EXPECT_TRUE(RowCountBecomes(Control(LI_Sections), 15));
}

TEST_F(ExchangeTest, BrowseMovesTheListsToTheFile) {
    CreateDirectoryW(installation.File(L"inner").c_str(), nullptr);
    const std::wstring deep = Copy("aurora_bay.vel", L"inner\\deep.vel");
    const HWND box = OpenBoxByKeys('I');
    TypeWithAlt('B');
    const FileDialog prompt = WaitForFileDialog(program);
    EXPECT_EQ(Narrow(prompt.caption), "Import");
    ASSERT_TRUE(AnswerFilePrompt(program, deep));
    EXPECT_TRUE(SectionCountBecomes(box, 9));
    EXPECT_EQ(Items(In(box, FIL_Db)), Texts{"deep.vel"});
    EXPECT_EQ(Send(In(box, FIL_Db), LB_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(Items(In(box, DIR_Db)).back(), "inner");
    EXPECT_TRUE(TextBecomes(In(box, LB_Service), L"Aurora Bay (Bulk carrier)"));
    ASSERT_TRUE(PressButton(box, IDOK));
    EXPECT_TRUE(RowCountBecomes(Control(LI_Sections), 15));
}

}  // namespace
}  // namespace corvane::ui
