// The box of File > Export all pictures: what it shows, returns and refuses.
#include "ui/dialogs/pictures_box.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/shell/fake_view.h"
#include "tests/ui/dialogs/modal_window.h"
#include "ui/base/control_ids.h"

namespace corvane {
namespace {

using test::Narrow;
using test::Press;
using test::RecordedReports;
using test::TextOf;

struct PicturesBox : testing::Test {
    test::FakeView kept;
    test::TemporaryFolder folder;
    PicturesChoice choice{.folder = folder.path, .count = 9};

    bool Ask(const std::function<void(HWND)>& look) {
        const test::WhenOpen open(kPicturesBoxClass, look);
        return AskPictures(choice);
    }
};

TEST_F(PicturesBox, ShowsTheFolderTheKindsAndHowMany) {
    EXPECT_FALSE(Ask([this](HWND window) {
        EXPECT_EQ(Narrow(WindowText(window)), "Export all pictures");
        EXPECT_NE(TextOf(window, LB_Pictures).find("Each of the 9 sections"), std::string::npos);
        EXPECT_EQ(TextOf(window, TX_PictureFolder), Narrow(folder.path));
        EXPECT_EQ(SendDlgItemMessageW(window, CB_PictureKind, CB_GETCOUNT, 0, 0), 4);
        EXPECT_EQ(TextOf(window, CB_PictureKind), "Enhanced metafile (*.emf)");
        EXPECT_EQ(GetFocus(), GetDlgItem(window, TX_PictureFolder));
        test::PressKey(GetFocus(), VK_ESCAPE);
    }));
}

TEST_F(PicturesBox, OkReturnsTheChoice) {
    EXPECT_TRUE(Ask([](HWND window) {
        SendDlgItemMessageW(window, CB_PictureKind, CB_SETCURSEL, 2, 0);
        Press(window, IDOK);
    }));
    EXPECT_EQ(choice.folder, folder.path);
    EXPECT_EQ(choice.kind, 2U);
}

TEST_F(PicturesBox, FolderThatIsMissingIsRefusedAndTheBoxStays) {
    EXPECT_FALSE(Ask([this](HWND window) {
        SetDlgItemTextW(window, TX_PictureFolder, folder.File(L"none").c_str());
        SendDlgItemMessageW(window, IDOK, BM_CLICK, 0, 0);
        EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
        EXPECT_EQ(GetFocus(), GetDlgItem(window, TX_PictureFolder));
        EXPECT_TRUE(IsWindowVisible(window));
        Press(window, IDCANCEL);
    }));
}

TEST_F(PicturesBox, NothingIsCutAtAnyResolution) {
    Ask([](HWND window) {
        for (const WORD dpi : test::kResolutions) test::ExpectWholeAt(window, dpi);
        Press(window, IDCANCEL);
    });
}

}  // namespace
}  // namespace corvane
