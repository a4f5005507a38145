// What the boxes of the exchange draw, and what they say about it.
#include "shell/exchange_preview.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bsd/bsd_file.h"
#include "database/editing.h"
#include "platform/system.h"
#include "report/messages.h"
#include "shell/state.h"
#include "tests/companions/section_builder.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/kept_picture.h"
#include "tests/shell/sample_models.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::KeptPicture;
using test::Narrow;
using test::RecordedReports;

constexpr size_t kBulkheads = test::kSectionCount;
constexpr size_t kTorsion = kBulkheads + 3;

// Another database than the open one. Its second arrangement has no nodes: its bulkheads have the
// outline of a section.
struct ExchangePreviewTest : testing::Test {
    test::FakeView view;
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"other.ve2");
    std::vector<ExchangeItem> items;
    ExchangePreview preview = NewExchangePreview();

    ExchangePreviewTest() {
        test::WriteFileBytes(path, test::ReadFileBytes(test::SamplePath()));
        items = ListForExchange(path);
        BasicShipData bsd;
        EXPECT_TRUE(ReadForExchange(path, items.at(kBulkheads + 1), preview.pane, bsd));
        BulkheadArrangement bulkheads = preview.pane.bulkheads;
        for (Bulkhead& bulkhead : bulkheads.bulkheads) bulkhead.nodes.clear();
        EXPECT_TRUE(ReplaceBulkheadArrangement(path, bulkheads, kBulkheads + 2));
        items = ListForExchange(path);
        EXPECT_EQ(items.size(), std::size(test::kSampleModels));
        RecordedReports::events.clear();
    }
    void Preview(size_t item) { PreviewItem(preview, {path, items}, item); }
    static std::vector<std::string> Warnings() { return RecordedReports::Of("warning"); }
};

TEST_F(ExchangePreviewTest, SectionIsShownWithItsShip) {
    Preview(4);
    EXPECT_TRUE(preview.pane.isShown);
    EXPECT_EQ(preview.pane.section.name, test::kSampleModels[4].name);
    EXPECT_EQ(Narrow(preview.label), "Aurora Bay (Bulk carrier)");
    EXPECT_EQ(preview.why, L"");
    EXPECT_FALSE(HasPicture(shell.preview)) << "the main window has its own";
}

TEST_F(ExchangePreviewTest, BulkheadsAreDrawnInsideOfTheirOwnDatabasesSections) {
    Preview(kBulkheads + 1);
    EXPECT_TRUE(preview.pane.areBulkheadsShown);
    EXPECT_FALSE(preview.pane.isShown);
    EXPECT_EQ(Narrow(preview.label), "Aurora Bay (Bulk carrier)");
    KeptPicture kept;
    DrawExchangePreview(preview, kept.picture);
    EXPECT_GT(kept.drawn.items.size(), 20U);
    EXPECT_TRUE(kept.Says(preview.pane.bulkheads.bulkheads[0].name));
    ASSERT_TRUE(preview.pane.outline);
    EXPECT_EQ(preview.pane.outline->source, OutlineSource::kSection);
    EXPECT_EQ(preview.pane.outline->sectionName, L"Midship section, hold 4");
    EXPECT_TRUE(Warnings().empty());
}

// The same model as the open database's: the same figure, line by line.
TEST_F(ExchangePreviewTest, BulkheadsAreDrawnAsInTheMainWindow) {
    shell.database.path = path;
    ASSERT_TRUE(LoadBsdFromDatabase(path, shell.database.bsd));
    shell.database.rows = FillModelList(path);
    test::FakeView::previewOn = true;
    for (size_t item = kBulkheads; item < kTorsion; ++item) {
        ShowInPreview(shell.database.rows[item]);
        Preview(item);
        KeptPicture ofMainWindow;
        KeptPicture ofBox;
        DrawPreview(ofMainWindow.picture);
        DrawExchangePreview(preview, ofBox.picture);
        EXPECT_GT(ofBox.drawn.points.size(), 100U);
        EXPECT_EQ(ofBox.drawn.points, ofMainWindow.drawn.points) << item;
        EXPECT_EQ(ofBox.drawn.texts, ofMainWindow.drawn.texts) << item;
    }
}

TEST_F(ExchangePreviewTest, DatabaseWithoutSectionsHasTheShipsBreadthAndDepthAround) {
    const std::vector<ExchangeItem> bulkheads(items.begin() + kBulkheads, items.end());
    PreviewItem(preview, {path, bulkheads}, 1);
    EXPECT_TRUE(preview.pane.areBulkheadsShown);
    ASSERT_TRUE(preview.pane.outline);
    EXPECT_EQ(preview.pane.outline->source, OutlineSource::kBreadthAndDepth);
}

TEST_F(ExchangePreviewTest, NextBulkheadIsNamedByTheLabel) {
    Preview(0);
    EXPECT_FALSE(PreviewNextBulkhead(preview)) << "a section has none";
    Preview(kBulkheads + 1);
    const auto count = static_cast<int32_t>(preview.pane.bulkheads.bulkheads.size());
    ASSERT_GE(count, 1);
    for (int32_t i = 1; i <= count; ++i) {
        EXPECT_TRUE(PreviewNextBulkhead(preview));
        const std::wstring& name = preview.pane.bulkheads.bulkheads[preview.pane.bulkhead - 1].name;
        EXPECT_EQ(preview.label, FormatMessage(kMsgOneBulkhead, {i, count, name}));
    }
    EXPECT_TRUE(PreviewNextBulkhead(preview));
    EXPECT_EQ(preview.pane.bulkhead, 0U);
    EXPECT_EQ(preview.label, FormatMessage(kMsgAllBulkheads, {count}));
    PreviewNextBulkhead(preview);
    Preview(kBulkheads + 1);
    EXPECT_EQ(preview.pane.bulkhead, 0U) << "a click begins with all of them";
}

TEST_F(ExchangePreviewTest, SwitchesAreThoseOfTheMainWindow) {
    shell.preview.options.hasLegend = true;
    preview = NewExchangePreview();
    Preview(kBulkheads + 1);
    KeptPicture kept;
    DrawExchangePreview(preview, kept.picture);
    EXPECT_TRUE(kept.Says(GetMessage(kMsgLegendOutline)));
}

TEST_F(ExchangePreviewTest, TorsionModelSaysWhyAsInTheMainWindow) {
    Preview(0);
    Preview(kTorsion);
    EXPECT_FALSE(HasPicture(preview.pane)) << "not the section before";
    EXPECT_EQ(preview.why, GetMessage(kMsgTorsionLayout));
    EXPECT_EQ(preview.label, L"");
    EXPECT_TRUE(Warnings().empty());
}

// ---- Bad input ---------------------------------------------------------------------------------

TEST_F(ExchangePreviewTest, ModelThatCannotBeReadLeavesNothingOfTheOneBefore) {
    for (const size_t item : {size_t{2}, kBulkheads}) {
        Preview(0);
        ASSERT_TRUE(preview.pane.isShown);
        test::WriteFileBytes(path, "no database any more");
        RecordedReports::events.clear();
        Preview(item);
        EXPECT_FALSE(HasPicture(preview.pane)) << item;
        EXPECT_EQ(preview.why, L"") << "a box has said it";
        EXPECT_EQ(preview.label, L"") << item;
        ASSERT_EQ(Warnings().size(), 1U) << item;
        EXPECT_NE(Warnings()[0].find("other.ve2"), std::string::npos) << Warnings()[0];
        test::WriteFileBytes(path, test::ReadFileBytes(test::SamplePath()));
    }
}

TEST_F(ExchangePreviewTest, FileThatIsGoneIsReportedOnce) {
    Preview(kBulkheads);
    system::RemoveFile(path);
    RecordedReports::events.clear();
    Preview(kBulkheads + 1);
    EXPECT_FALSE(HasPicture(preview.pane));
    EXPECT_EQ(Warnings().size(), 1U);
    KeptPicture kept;
    DrawExchangePreview(preview, kept.picture);
    EXPECT_TRUE(kept.drawn.items.empty());
    EXPECT_EQ(Warnings().size(), 1U) << "drawing reads nothing";
}

TEST_F(ExchangePreviewTest, SectionWithoutPlatingSaysWhy) {
    SectionModel bare;
    bare.name = L"Bare";
    bare.panels.resize(2);
    ASSERT_TRUE(ReplaceSection(path, bare, 2));
    items = ListForExchange(path);
    Preview(0);
    Preview(1);
    EXPECT_FALSE(HasPicture(preview.pane));
    EXPECT_EQ(preview.why, GetMessage(kMsgNoPlating));
    EXPECT_EQ(Narrow(preview.label), "Aurora Bay (Bulk carrier)") << "it was read";
}

// All nodes at one place: neither breadth nor height.
TEST_F(ExchangePreviewTest, SectionOfOnePointIsDrawnWithoutAFault) {
    SectionModel point;
    point.name = L"Point";
    Panel panel;
    panel.nodes = {test::GivenNode(3, 4), test::GivenNode(3, 4)};
    point.panels.assign(2, panel);
    ASSERT_TRUE(ReplaceSection(path, point, 2));
    items = ListForExchange(path);
    Preview(1);
    EXPECT_EQ(HasPicture(preview.pane), preview.why.empty());
    KeptPicture kept;
    DrawExchangePreview(preview, kept.picture);
    EXPECT_TRUE(Warnings().empty());
}

// ---- Export ------------------------------------------------------------------------------------

struct ExportPreview : ExchangePreviewTest {
    ExportChoice choice;

    ExportPreview() {
        EXPECT_TRUE(LoadBsdFromDatabase(path, shell.database.bsd));
        PreviewPane read;
        BasicShipData bsd;
        EXPECT_TRUE(ReadForExchange(path, items[4], read, bsd));
        choice.section = read.section;
        RecordedReports::events.clear();
    }
};

TEST_F(ExportPreview, SectionThatIsExportedIsShownAndNamed) {
    PreviewExported(preview, choice);
    EXPECT_TRUE(preview.pane.isShown);
    EXPECT_EQ(preview.pane.section.panels.size(), choice.section.panels.size());
    EXPECT_EQ(Narrow(preview.label), "To be exported: Midship section, hold 4");
}

TEST_F(ExportPreview, OfSeveralTheFirstOneIsShown) {
    choice.sections = 3;
    PreviewExported(preview, choice);
    EXPECT_TRUE(preview.pane.isShown);
    EXPECT_EQ(Narrow(preview.label), "The first of 3 to be exported: Midship section, hold 4");
}

TEST_F(ExportPreview, SectionThatIsReplacedIsShownAndNamed) {
    const std::wstring legacy = test::DataPath("../samples/aurora_bay.vel");
    const std::vector<ExchangeItem> slots = ListForExchange(legacy);
    PreviewReplaced(preview, {legacy, slots}, 1);
    EXPECT_TRUE(preview.pane.isShown);
    EXPECT_EQ(Narrow(preview.label), "To be replaced: Hold 7, frame 61");
    PreviewExported(preview, choice);
    EXPECT_EQ(preview.pane.section.name, L"Midship section, hold 4");
}

TEST_F(ExportPreview, SlotThatCannotBeReadLeavesNothing) {
    const std::wstring legacy = folder.File(L"old.vel");
    test::WriteFileBytes(legacy, test::ReadFileBytes(test::DataPath("../samples/aurora_bay.vel")));
    const std::vector<ExchangeItem> slots = ListForExchange(legacy);
    PreviewExported(preview, choice);
    test::WriteFileBytes(legacy, "damaged");
    RecordedReports::events.clear();
    PreviewReplaced(preview, {legacy, slots}, 1);
    EXPECT_FALSE(HasPicture(preview.pane));
    EXPECT_EQ(preview.label, L"");
    EXPECT_EQ(Warnings().size(), 1U);
}

}  // namespace
}  // namespace corvane
