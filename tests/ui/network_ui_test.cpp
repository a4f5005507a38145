// The real program with files of another computer's share: \\corvane\share, a folder of the Wine
// prefix.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "legacy/exchange.h"
#include "tests/ui/main_window_fixture.h"

namespace corvane::ui {
namespace {

namespace fs = std::filesystem;
using test::Narrow;
using test::ReadFileBytes;

// A folder on the share with the sample ship as a database and as a DOS database.
struct SharedFolder {
    const std::wstring folder = L"\\\\corvane\\share\\ships";
    const std::wstring away = L"\\\\corvane\\share\\away";

    SharedFolder() {
        Remove();
        fs::create_directories(folder);
        for (const wchar_t* name : {L"aurora_bay.ve2", L"aurora_bay.vel"}) {
            fs::copy_file(test::DataPath("../samples/") + name, File(name));
        }
    }
    ~SharedFolder() { Remove(); }
    SharedFolder(const SharedFolder&) = delete;
    SharedFolder& operator=(const SharedFolder&) = delete;

    std::wstring File(const std::wstring& name) const { return folder + L'\\' + name; }
    // The share can't be reached any more, or again.
    void GoAway() const { ASSERT_NE(MoveFileW(folder.c_str(), away.c_str()), FALSE); }
    void ComeBack() const { ASSERT_NE(MoveFileW(away.c_str(), folder.c_str()), FALSE); }
    void Remove() const {
        std::error_code error;
        fs::remove_all(folder, error);
        fs::remove_all(away, error);
    }
};

// The boxes begin with this folder.
struct BrowseSettings : Settings {
    explicit BrowseSettings(const std::wstring& folder) { Write(L"BrowseDirectory", folder); }
};

struct NetworkUi : testing::Test {
    static constexpr int kModels = 14;
    const SharedFolder share;
    const std::wstring path = share.File(L"aurora_bay.ve2");
    const BrowseSettings settings{share.folder};
    Installation installation;
    Program program{installation, L'"' + path + L'"'};
    HWND main = program.Main();

    void SetUp() override {
        ASSERT_NE(main, nullptr);
        ASSERT_TRUE(TakesKeys(main));
        ASSERT_TRUE(FocusBecomes(main, LI_Sections));
        ASSERT_EQ(Narrow(TextOf(GetDlgItem(main, TX_DataBase))), Narrow(path));
        ASSERT_TRUE(HasRows(kModels));
    }
    bool HasRows(int count) const { return RowCountBecomes(GetDlgItem(main, LI_Sections), count); }
    // Clicks on the DOS database in the box's list; the list begins with the folder of the
    // settings.
    static void ChooseLegacyFile(HWND box) {
        const HWND files = GetDlgItem(box, FIL_Db);
        RECT place{};
        Send(files, LB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&place));
        for (const WPARAM index : {WPARAM{0}, WPARAM{1}}) {
            wchar_t text[300] = L"";
            Send(files, LB_GETTEXT, index, reinterpret_cast<LPARAM>(text));
            if (text != std::wstring(L"aurora_bay.vel")) continue;
            Send(files, LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&place));
        }
        const LPARAM at = MAKELPARAM(place.left + 20, (place.top + place.bottom) / 2);
        PostMessageW(files, WM_LBUTTONDOWN, MK_LBUTTON, at);
        PostMessageW(files, WM_LBUTTONUP, 0, at);
    }
    static int SectionsIn(HWND box) {
        return static_cast<int>(Send(GetDlgItem(box, LI_Sections), LB_GETCOUNT, 0, 0));
    }
    static std::string FolderAt(HWND box, WPARAM index) {
        wchar_t text[300] = L"";
        Send(GetDlgItem(box, DIR_Db), LB_GETTEXT, index, reinterpret_cast<LPARAM>(text));
        return Narrow(text);
    }
};

TEST_F(NetworkUi, EditIsMadeOnTheShareAndUndone) {
    const std::string before = ReadFileBytes(path);
    Type({VK_DELETE});
    ASSERT_TRUE(Press(WaitForBox(program), IDYES));
    EXPECT_TRUE(HasRows(kModels - 1));
    EXPECT_NE(ReadFileBytes(path), before);
    TypeWithControl('Z');
    EXPECT_TRUE(HasRows(kModels));
    EXPECT_EQ(ReadFileBytes(path), before);
}

TEST_F(NetworkUi, ImportBoxReachesTheShare) {
    Choose(main, ME_SectionImport);
    const HWND box = program.Window(L"FM_Inport");
    ASSERT_NE(box, nullptr);
    ChooseLegacyFile(box);
    EXPECT_TRUE(WaitUntil([&] { return SectionsIn(box) == 9; }));
    EXPECT_EQ(FolderAt(box, 0), "\\\\corvane\\share\\");
    EXPECT_EQ(FolderAt(box, 1), "ships");
    EXPECT_EQ(Send(GetDlgItem(box, DRV_Db), CB_GETCURSEL, 0, 0), CB_ERR) << "no letter's drive";
    ASSERT_TRUE(PressButton(box, IDOK));
    EXPECT_TRUE(HasRows(kModels + 1));
}

TEST_F(NetworkUi, ExportBoxWritesToADatabaseOnTheShare) {
    const std::string before = ReadFileBytes(share.File(L"aurora_bay.vel"));
    Choose(main, ME_SectionExport);
    const HWND box = program.Window(L"FM_Export");
    ASSERT_NE(box, nullptr);
    ChooseLegacyFile(box);
    EXPECT_TRUE(WaitUntil([&] { return SectionsIn(box) == 9; }));
    ASSERT_TRUE(PressButton(box, IDOK));
    EXPECT_TRUE(WaitUntil([&] {
        int16_t status = -1;
        return ListLegacySections(share.File(L"aurora_bay.vel"), status).size() == 10;
    }));
    EXPECT_NE(ReadFileBytes(share.File(L"aurora_bay.vel")), before);
}

TEST_F(NetworkUi, ShareThatGoesAwayIsSaidAndNothingIsLost) {
    const std::string before = ReadFileBytes(path);
    share.GoAway();
    Type({VK_DELETE});
    const Box refusal = WaitForBox(program);
    EXPECT_NE(Narrow(refusal.text).find("aurora_bay.ve2"), std::string::npos)
        << Narrow(refusal.text);
    ASSERT_TRUE(Press(refusal, IDOK));
    EXPECT_TRUE(WaitUntil([&] { return IsWindowVisible(GetDlgItem(main, LB_WhyGone)) != FALSE; }));
    share.ComeBack();
    Type({VK_F5});
    EXPECT_TRUE(WaitUntil([&] { return IsWindowVisible(GetDlgItem(main, LB_WhyGone)) == FALSE; }));
    EXPECT_TRUE(HasRows(kModels));
    EXPECT_EQ(ReadFileBytes(path), before);
}

TEST_F(NetworkUi, ShareThatGoesAwayDuringTheQuestionLeavesAllAsItWas) {
    const std::string before = ReadFileBytes(path);
    Type({VK_DELETE});
    const Box question = WaitForBox(program);
    share.GoAway();
    ASSERT_TRUE(Press(question, IDYES));
    const Box refusal = WaitForBox(program);
    EXPECT_NE(Narrow(refusal.text).find("aurora_bay.ve2"), std::string::npos)
        << Narrow(refusal.text);
    share.ComeBack();
    ASSERT_TRUE(Press(refusal, IDOK));
    EXPECT_TRUE(HasRows(kModels));
    EXPECT_EQ(ReadFileBytes(path), before);
}

}  // namespace
}  // namespace corvane::ui
