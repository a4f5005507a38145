// The page preview: which page, on which paper, at which scale, and what it says.
#include "shell/page_preview.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

#include "report/messages.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::Narrow;

// A document of three pages. A page notes what it was made with; the second one has no drawing, and
// at scales above 1:100 no page is cut off.
struct PagePreviewTest : testing::Test {
    struct Made {
        int page;
        bool isPortrait;
        int scale;
        bool hasTable;
        bool operator==(const Made&) const = default;
    };
    test::FakeView view;
    std::vector<Made> made;
    PrintJob job;
    PagePreview preview{.job = job};

    PagePreviewTest() {
        job.name = L"Midship";
        job.pageCount = 3;
        job.makePage = [this](int page, const Paper& paper) {
            made.push_back({page, paper.height_mm > paper.width_mm, shell.pages.scale,
                            shell.preview.options.hasTable});
            Page shown;
            if (page != 2) shown.scale = shell.pages.scale > 0 ? shell.pages.scale : 137;
            shown.isCutOff = shell.pages.scale == 10;
            return shown;
        };
        TakePaper(preview);
    }
};

TEST_F(PagePreviewTest, BeginsWithTheFirstPageOnA4AcrossAndFits) {
    EXPECT_EQ(made, (std::vector<Made>{{1, false, 0, false}}));
    EXPECT_EQ(preview.paper.width_mm, 297);
    EXPECT_EQ(preview.paper.height_mm, 210);
    EXPECT_EQ(Narrow(PageText(preview)), "Page 1 of 3");
    EXPECT_EQ(Narrow(PageScaleText(preview)), "This page is 1:137");
    EXPECT_EQ(PageRemark(preview), L"");
    EXPECT_FALSE(HasPageBefore(preview));
    EXPECT_TRUE(HasPageAfter(preview));
}

TEST_F(PagePreviewTest, PagesAreTurnedToTheEndsAndNoFarther) {
    ShowPage(preview, 2);
    EXPECT_TRUE(HasPageBefore(preview));
    EXPECT_TRUE(HasPageAfter(preview));
    EXPECT_EQ(Narrow(PageScaleText(preview)), "This page has no drawing");
    ShowPage(preview, 3);
    ShowPage(preview, 4);
    EXPECT_EQ(preview.page, 3);
    EXPECT_FALSE(HasPageAfter(preview));
    ShowPage(preview, -1);
    EXPECT_EQ(Narrow(PageText(preview)), "Page 1 of 3");
    EXPECT_EQ(made.size(), 4U) << "a page that is shown already is not laid out again";
}

TEST_F(PagePreviewTest, ScaleIsChosenForAllPagesAndTheRemarkSaysWhatIsCutOff) {
    const std::vector<std::wstring> choices = ScaleChoices();
    ASSERT_EQ(choices.size(), std::size(kPageScales) + 1);
    EXPECT_EQ(Narrow(choices.front()), "Fit to the page");
    EXPECT_EQ(Narrow(choices[1]), "1:10");
    EXPECT_EQ(Narrow(choices.back()), "1:1000");
    EXPECT_EQ(ScaleChoiceNow(), 0U);
    ChooseScale(preview, 1);
    EXPECT_EQ(ScaleChoiceNow(), 1U);
    EXPECT_EQ(Narrow(PageScaleText(preview)), "This page is 1:10");
    EXPECT_NE(PageRemark(preview).find(L"larger than the page"), std::wstring::npos);
    ShowPage(preview, 3);
    EXPECT_EQ(made.back(), (Made{3, false, 10, false}));
    ChooseScale(preview, choices.size() - 1);
    EXPECT_EQ(made.back(), (Made{3, false, 1000, false}));
    EXPECT_EQ(PageRemark(preview), L"");
    ChooseScale(preview, choices.size());
    EXPECT_EQ(shell.pages.scale, 1000) << "no such choice";
    ChooseScale(preview, 0);
    EXPECT_EQ(shell.pages.scale, 0);
}

TEST_F(PagePreviewTest, PaperIsTurnedAndTheTableIsTheRememberedSwitch) {
    ChoosePortrait(preview, true);
    EXPECT_EQ(made.back(), (Made{1, true, 0, false}));
    EXPECT_EQ(preview.paper.width_mm, 210);
    SwitchTable(preview, true);
    EXPECT_EQ(made.back(), (Made{1, true, 0, true}));
    EXPECT_TRUE(test::RecordedReports::Happened("enabling")) << "the menu has its check mark";
    ChoosePortrait(preview, false);
    EXPECT_EQ(preview.paper.width_mm, 297);
}

TEST(PageChoiceTest, IsKeptInTheSettingsFile) {
    const test::TemporaryFolder folder;
    const std::wstring file = folder.File(L"a.ini");
    EXPECT_EQ(ReadPageChoice(file), PageChoice()) << "it fits, on paper across, at first";
    const PageChoice choice{.scale = 200, .isPortrait = true};
    ASSERT_TRUE(WritePageChoice(file, choice));
    EXPECT_EQ(ReadPageChoice(file), choice);
    ASSERT_TRUE(WritePageChoice(file, {.scale = 7}));
    EXPECT_EQ(ReadPageChoice(file), PageChoice()) << "a scale that nobody can choose";
}

}  // namespace
}  // namespace corvane
