// What is put on paper: a page of the picture, a page of every section, and what the title block
// says.
#include "shell/picture_printing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bsd/bsd_file.h"
#include "database/editing.h"
#include "shell/model_list.h"
#include "shell/open_database.h"
#include "shell/preview_pane.h"
#include "shell/printing.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/sample_models.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

constexpr Paper kA4{297, 210, {5, 5, 5, 5}};

// The pages that were given to the printer.
struct PrintedPages {
    static inline std::wstring name;
    static inline bool hasMarks;
    static inline std::vector<Figure> pages;

    PrintedPages() {
        name.clear();
        pages.clear();
        shell.view.previewPages = [](const PrintJob& job) {
            name = job.name;
            hasMarks = job.hasMarks;
            for (int page = 1; page <= job.pageCount; ++page) {
                pages.push_back(job.makePage(page, kA4).figure);
            }
        };
    }
};

bool Says(const Figure& page, const std::wstring& part) {
    return std::ranges::any_of(page.texts, [&part](const std::wstring& text) {
        return text.find(part) != std::wstring::npos;
    });
}

// A copy of the sample ship, open and listed.
struct PicturePrintingTest : testing::Test {
    test::FakeView view;
    test::TemporaryFolder folder;
    PrintedPages printed;

    PicturePrintingTest() {
        shell.database.path = folder.File(L"ship.ve2");
        test::WriteFileBytes(shell.database.path, test::ReadFileBytes(test::SamplePath()));
        LoadBsdFromDatabase(shell.database.path, shell.database.bsd);
        test::FakeView::previewOn = true;
        shell.database.rows = FillModelList(shell.database.path);
    }
    ~PicturePrintingTest() override = default;

    const ModelRow& FirstOf(ModelKind kind) const {
        return *std::ranges::find(shell.database.rows, kind, &ModelRow::kind);
    }
};

TEST_F(PicturePrintingTest, SectionHasAPageWithItsTitleBlock) {
    const ModelRow& row = FirstOf(ModelKind::kSection);
    ShowInPreview(row);
    PrintShownPicture();
    ASSERT_EQ(printed.pages.size(), 1U);
    EXPECT_EQ(printed.name, row.name);
    const Figure& page = printed.pages[0];
    for (const std::wstring& part :
         {row.name, std::wstring(L"ship.ve2"), shell.database.bsd.Titles(5).Trimmed(),
          std::wstring(L"20.700 m"), std::wstring(L"30"), std::wstring(L"1:"),
          std::wstring(L"Corvane 1.0")}) {
        EXPECT_TRUE(Says(page, part)) << test::Narrow(part);
    }
    EXPECT_GT(std::ranges::count(page.items, FigureLayer::kPlate, &FigureItem::layer), 5);
    for (const SheetPoint& point : page.points) {
        EXPECT_TRUE(point.x >= 10 && point.x <= 287) << "margins of 10 mm at least";
        EXPECT_TRUE(point.y >= 10 && point.y <= 200);
    }
}

TEST_F(PicturePrintingTest, ChosenScaleIsThatOfThePage) {
    ShowInPreview(FirstOf(ModelKind::kSection));
    shell.pages.scale = 200;
    PrintShownPicture();
    EXPECT_TRUE(Says(printed.pages.at(0), L"1:200"));
    EXPECT_EQ(printed.pages[0].mmPerMetre, 5);
    shell.pages.scale = 10;
    PrintAllSections();
    EXPECT_TRUE(Says(printed.pages.at(1), L"1:10"));
    EXPECT_TRUE(Says(printed.pages[1], L"Cut off at the page's edge"));
}

TEST_F(PicturePrintingTest, TableGoesWithThePictureWhenItIsSwitchedOnAndSomethingIsMarked) {
    ShowInPreview(FirstOf(ModelKind::kSection));
    shell.preview.options.hasTable = true;
    PrintShownPicture();
    EXPECT_FALSE(PrintedPages::hasMarks);
    EXPECT_FALSE(Says(printed.pages.at(0), L"Panel"));

    const Panel& panel = shell.preview.section.panels.at(0);
    shell.preview.places = {{{panel.nodes.at(0).y, panel.nodes.at(0).z}, 0.5}};
    PrintShownPicture();
    EXPECT_TRUE(PrintedPages::hasMarks);
    EXPECT_TRUE(Says(printed.pages.at(1), L"Panel"));
    EXPECT_TRUE(Says(printed.pages[1], panel.name));
    shell.preview.options.hasTable = false;
    PrintShownPicture();
    EXPECT_TRUE(PrintedPages::hasMarks) << "the preview can switch it on";
    EXPECT_FALSE(Says(printed.pages.at(2), L"Panel"));
    EXPECT_LT(printed.pages[2].items.size(), printed.pages[1].items.size());
}

TEST_F(PicturePrintingTest, BulkheadsHaveAPage) {
    ShowInPreview(FirstOf(ModelKind::kBulkhead));
    PrintShownPicture();
    ASSERT_EQ(printed.pages.size(), 1U);
    EXPECT_TRUE(Says(printed.pages[0], shell.preview.bulkheads.name));
    EXPECT_GT(printed.pages[0].items.size(), 50U);
}

TEST_F(PicturePrintingTest, NothingShownPrintsNothing) {
    ShowInPreview(FirstOf(ModelKind::kTorsion));
    PrintShownPicture();
    EXPECT_TRUE(printed.pages.empty());
}

TEST_F(PicturePrintingTest, AllSectionsHaveAPageEachAndSayWhatCannotBeDrawn) {
    SectionModel bare;
    bare.name = L"Bare";
    bare.panels.resize(2);
    std::wstring path = shell.database.path;
    ASSERT_TRUE(ReplaceSection(path, bare, 2));
    shell.database.rows = FillModelList(shell.database.path);
    PrintAllSections();
    EXPECT_EQ(printed.name, L"ship.ve2");
    ASSERT_EQ(printed.pages.size(),
              static_cast<size_t>(
                  std::ranges::count(shell.database.rows, ModelKind::kSection, &ModelRow::kind)));
    EXPECT_TRUE(Says(printed.pages[0], shell.database.rows[0].name));
    EXPECT_TRUE(Says(printed.pages[1], L"Bare"));
    EXPECT_TRUE(Says(printed.pages[1], L"This section has no plating to draw."));
    EXPECT_FALSE(Says(printed.pages[2], L"no plating"));
}

TEST_F(PicturePrintingTest, SectionThatCannotBeReadHasAPageThatSaysSoAndNoBox) {
    shell.database.rows[0].offset = 1;
    shell.database.rows[0].tag = 77;
    PrintAllSections();
    EXPECT_TRUE(Says(printed.pages.at(0), L"This section could not be read."));
    EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
}

TEST_F(PicturePrintingTest, DatabaseWithoutSectionsSaysSo) {
    std::erase_if(shell.database.rows,
                  [](const ModelRow& row) { return row.kind == ModelKind::kSection; });
    PrintAllSections();
    EXPECT_TRUE(printed.pages.empty());
    EXPECT_EQ(printed.name, L"");
}

}  // namespace
}  // namespace corvane
