// ReadSectionBlock and ReadSectionLines: what is read, and what is reported.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "database/model_kind.h"
#include "database/scanning.h"
#include "report/messages.h"
#include "tests/database/editing_fixture.h"
#include "tests/database/section_sample.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::BodyText;
using test::ReadText;
using test::Replaced;

std::string Golden() {
    return test::ReadFileBytes(test::DataPath("golden/section_full.ve2"));
}

// The catalogue with a blank at the end of every label of a table.
std::map<int32_t, std::string> LabelsWithTrailingBlanks() {
    std::map<int32_t, std::string> texts = test::CatalogueTexts();
    for (const MessageNumber number :
         {kMsgPanelTable, kMsgNodeTable, kMsgPlateTable, kMsgStiffenerTable, kMsgSpanTable,
          kMsgCompartmentTable, kMsgCompartmentSizeTable, kMsgBracketTable, kMsgOpeningTable,
          kMsgPillarTable, kMsgFatigueTable, kMsgSignature}) {
        texts[number] += ' ';
    }
    return texts;
}

// As read and written again.
std::string Rewritten(std::string_view text) {
    SectionModel section = ReadText(text);
    return BodyText(section);
}

struct SectionReaderTest : testing::Test {
    test::RecordedReports screen;
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    std::string golden = Golden();
    std::string body = test::BodyOf(golden);

    // Reads the golden block with another keyword.
    bool ReadKeyword(std::string_view keyword, bool allowBulkhead, SectionModel& section) {
        test::WriteFileBytes(
            path, Replaced(golden, "\r\nSECTION\r\n", "\r\n" + std::string(keyword) + "\r\n"));
        return ReadSectionBlock(path, 7, allowBulkhead, section);
    }
    std::string Warning() {
        const auto warnings = test::RecordedReports::Of("warning");
        return warnings.size() == 1 ? warnings.front() : std::string("not one warning");
    }
};

TEST_F(SectionReaderTest, GoldenFileIsRead) {
    SectionModel section;
    ASSERT_TRUE(ReadSectionBlock(test::DataPath("golden/section_full.ve2"), 7, false, section));
    EXPECT_EQ(section.name, L"Frame 100");
    EXPECT_EQ(section.identifier, "ID-0001");
    EXPECT_NEAR(section.formatVersion, 2.002, 1e-9);
    EXPECT_EQ(section.x_m, 12.5f);
    EXPECT_EQ(section.webSpacing_m, 3.2f);
    EXPECT_EQ(section.stillWaterMoment_kNm(2), 1800.0f);
    EXPECT_EQ(section.shearForce_kN(2), 1.2e7f);
    EXPECT_EQ(section.inertiaZ_m4, 0.0001f);
    EXPECT_EQ(section.resultCodes(4), 4);
    EXPECT_EQ(section.resultsValid, -1);
    ASSERT_EQ(section.panels.size(), 2u);
    EXPECT_EQ(section.panels[1].name, L"Inner side of exactly forty characters,,");
    ASSERT_EQ(section.panels[1].nodes.size(), 2u);
    EXPECT_EQ(section.panels[1].nodes[0].relative, -1);
    EXPECT_EQ(section.panels[1].nodes[1].relative, 0);
    EXPECT_EQ(section.panels[1].nodes[1].extension[4], -0.25f);
    EXPECT_EQ(section.panels[1].nodes[1].extensionStrake, 1);
    ASSERT_EQ(section.panels[0].stiffenerDetails.size(), 2u);
    ASSERT_EQ(section.panels[0].stiffenerDetails[0].spans.size(), 2u);
    EXPECT_EQ(section.panels[0].stiffenerDetails[0].spans[1].fatigue.stress_MPa(9), 1e-5f);
    EXPECT_EQ(section.panels[0].plates.at(1).end_m, 16.5f);
    ASSERT_EQ(section.compartments.size(), 2u);
    EXPECT_EQ(section.compartments[0].levels.at(1).surfaceBreadth_m, 16.0f);
    const std::vector<NodeReference> outline{{1, 1}, {1, 2}, {2, 1}};
    EXPECT_EQ(section.compartments[0].outline, outline);
    EXPECT_EQ(section.compartments[0].ends(2), 152);
}

// ---- Reports -----------------------------------------------------------------------------------

TEST_F(SectionReaderTest, FileThatCannotBeReadIsReportedWithTheReason) {
    SectionModel section;
    EXPECT_FALSE(ReadSectionBlock(test::kUnreadableFile, 1, false, section));
    const std::string before = test::Narrow(FormatMessage(3509, {test::kUnreadableFile, L""}));
    EXPECT_EQ(Warning().substr(0, 40), before.substr(0, 40));
}

TEST_F(SectionReaderTest, NumberThatNoBlockHasIsMessage1011) {
    test::WriteFileBytes(path, golden);
    SectionModel section;
    section.name = L"kept";
    EXPECT_FALSE(ReadSectionBlock(path, 1, false, section));
    EXPECT_EQ(Warning(), test::Narrow(FormatMessage(1011, {1, path})));
    EXPECT_EQ(section.name, L"kept");
}

TEST_F(SectionReaderTest, TorsionModelIsSkippedInSilence) {
    SectionModel section;
    section.name = L"kept";
    for (const bool allowBulkhead : {false, true}) {
        EXPECT_FALSE(ReadKeyword("TORSION", allowBulkhead, section));
    }
    EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
    EXPECT_EQ(test::RecordedReports::caption, L"");
    EXPECT_EQ(section.name, L"kept");
}

TEST_F(SectionReaderTest, BulkheadArrangementThatIsNotAllowedIsReported) {
    SectionModel section;
    section.name = L"kept";
    EXPECT_FALSE(ReadKeyword("BHA", false, section));
    EXPECT_EQ(Warning(), "Can not read BulkHead Arrangement");
    EXPECT_EQ(section.name, L"kept");
}

TEST_F(SectionReaderTest, AnyOtherKeywordIsASection) {
    SectionModel section;
    EXPECT_TRUE(ReadKeyword("section ", false, section));
    EXPECT_EQ(section.panels.size(), 2u);
}

// ---- Other layouts -----------------------------------------------------------------------------

TEST_F(SectionReaderTest, VersionBelow143IsReadWithTheNormalLayout) {
    const std::string old = Replaced(golden, "\r\n 2.002 \r\n", "\r\n 1.2 \r\n");
    EXPECT_NEAR(ReadText(old).formatVersion, 1.2, 1e-9);
    EXPECT_EQ(Rewritten(old), body);
}

TEST_F(SectionReaderTest, SeparatorsBetweenNumbersAreFree) {
    std::string text = Replaced(golden, " 1 \t14.5\t0\t 1 \t", "1,14.5   0 , \t1;");
    text = Replaced(text, " 12.5 \t 32.2 \t 19 ", "\t12.5,32.2\t\t 19.0 ");
    text = Replaced(text, "Bottom                                  \t .8 ", "Bottom\t0.8");
    text = Replaced(text, " 1 \t 1 \t 1 \t 10 \t .8 \t-1 ", "1 1 1 10 8E-1 -1 ");
    EXPECT_EQ(Rewritten(text), body);
}

TEST_F(SectionReaderTest, PanelNameWithoutATabEndsAfterFortyCharacters) {
    const std::string text =
        Replaced(golden, "characters,,\t .75 \t 3.2 \t", "characters,, .75 3.2 \t");
    EXPECT_EQ(Rewritten(text), body);
}

TEST_F(SectionReaderTest, TrailingTextIsIgnored) {
    std::string text = Replaced(golden, "\r\n 20.5 \t 25.125 \r\n", "\r\n20.5 25.125 m3\r\n");
    text = Replaced(text, "\r\n 2.002 \r\n", "\r\n 2.002 or so\r\n");
    text = Replaced(text, "0.55\t .8 \t 1 \r\n", "0.55\t .8 \t 1 \t end of span\r\n");
    EXPECT_EQ(Rewritten(text), body);
}

TEST_F(SectionReaderTest, BlankLinesBetweenRowsAreSkipped) {
    std::string text = Replaced(golden, "\r\n 1 \t14.5", "\r\n\r\n \t \r\n 1 \t14.5");
    text = Replaced(text, "\r\n 0 \t 1200 ", "\r\n\r\n 0 \t 1200 ");
    text = Replaced(text, "\r\n 0 \t 0 \r\n 0 \t 0 \r\n 7.5",
                    "\r\n\r\n\r\n 0 \t 0 \r\n 0 \t 0 \r\n 7.5");
    EXPECT_EQ(Rewritten(text + "\r\n\r\n"), body);
}

TEST_F(SectionReaderTest, SpansNeedNoEmptyLineBetweenThem) {
    const std::string text = Replaced(golden, "\t 1 \r\n\r\n 1 \t 3 ", "\t 1 \r\n 1 \t 3 ");
    EXPECT_EQ(Rewritten(text), body);
}

TEST_F(SectionReaderTest, BlankLinesAfterTheLastCompartmentAreNotCompartments) {
    const size_t end = golden.find("\r\n*\r\n" + GetMessageBytes(kMsgBracketTable));
    const std::string text = golden.substr(0, end) + "\r\n\r\n\r\n \r\n";
    EXPECT_EQ(ReadText(text).compartments.size(), 2u);
}

TEST_F(SectionReaderTest, EachTableMayBeMissing) {
    for (size_t missing = 2; missing < test::kBlockParts; ++missing) {
        const SectionModel section = ReadText(test::WithoutPart(golden, missing));
        EXPECT_EQ(section.name, L"Frame 100");
        EXPECT_EQ(section.panels.empty(), missing == 2) << missing;
        EXPECT_EQ(section.compartments.empty(), missing == 8) << missing;
        if (section.panels.size() != 2) continue;
        const Panel& first = section.panels[0];
        const Panel& second = section.panels[1];
        EXPECT_EQ(first.nodes.empty(), missing == 3) << missing;
        EXPECT_EQ(first.plates.empty(), missing == 4) << missing;
        EXPECT_EQ(first.stiffeners.empty(), missing == 5) << missing;
        EXPECT_EQ(first.brackets.empty(), missing == 9) << missing;
        EXPECT_EQ(second.openings.empty(), missing == 10) << missing;
        EXPECT_EQ(second.pillars.empty(), missing == 11) << missing;
        if (first.stiffeners.empty()) continue;
        const std::vector<Span>& spans = first.stiffenerDetails[0].spans;
        EXPECT_EQ(spans.empty(), missing == 6) << missing;
        if (spans.empty()) continue;
        ASSERT_EQ(spans.size(), 2u);
        EXPECT_EQ(spans[1].fatigue.present, missing != 12) << missing;
    }
}

TEST_F(SectionReaderTest, LabelWithABlankAtItsEndInTheCatalogueIsFound) {
    const test::FakeCatalogue catalogue(LabelsWithTrailingBlanks());
    SectionModel section = test::FullSection();
    const std::string text = test::BlockText(section, 1);
    EXPECT_NE(text.find("PLATES ------------------ \r\n"), std::string::npos);
    EXPECT_EQ(Rewritten(text), test::BodyOf(text));
    EXPECT_EQ(Rewritten(golden), test::BodyOf(text));
    EXPECT_TRUE(IsDatabaseFile(test::DataPath("golden/section_full.ve2")));
}

TEST_F(SectionReaderTest, VersionLabelOfDashesDoesNotEndTheHead) {
    const std::string label = "\r\n" + FetchStructuralLines().versionLabel + "\r\n";
    std::map<int32_t, std::string> texts = test::CatalogueTexts();
    texts[kMsgFormatVersionLabel] = "------ version";
    const test::FakeCatalogue catalogue(texts);
    const SectionModel section = ReadText(Replaced(golden, label, "\r\n------ version\r\n"));
    EXPECT_EQ(section.name, L"Frame 100");
    EXPECT_NEAR(section.formatVersion, 2.002, 1e-9);
}

TEST_F(SectionReaderTest, WhatWasReadIsWritten) {
    std::string text = golden;
    const struct {
        const char* sound;
        const char* odd;
    } cases[] = {
        {" 1 \t 3 \t 2 \t 2 \t 1 \r\n", " 1 \t 3 \t 9 \t 2 \t 0 \r\n"},  // counts of a panel
        {" 2 \t 2 \t 1 \t 0 \t 0 \r\n 1 \t 2 \t",
         " 2 \t 2 \t 1 \t 9 \t 0 \r\n 1 \t 2 \t"},                         // closing pair
        {"Void\r\n 0 \t 0 \r\n", "Void\r\n 2 \t 0 \r\n"},                  // without others
        {" 1 \t14.5\t0\t 1 \t", " 1 \t14.5\t0\t-1 \t"},                    // Abs
        {" 10 \t .8 \t-1 \t .8 \t 2 \t", " 10 \t .8 \t-1 \t .8 \t 5 \t"},  // count of spans
        {"\r\n 2 \t0.5\t12", "\r\n 7 \t0.5\t12"},                          // count of levels
    };
    for (const auto& [sound, odd] : cases) text = Replaced(text, sound, odd);
    EXPECT_EQ(Rewritten(text), test::BodyOf(text));
}

TEST_F(SectionReaderTest, FatigueNumbersMayBeOnAnyLines) {
    const size_t begin = golden.find(" 1 \t 1 \t 2 \r\n 3.2 \t 12");
    ASSERT_NE(begin, std::string::npos);
    const std::string rows = golden.substr(begin);
    for (const char* separator : {"\t", "\r\n", "\r\n* comment\r\n", " \r\n\r\n"}) {
        std::string joined;
        for (size_t at = 0; at < rows.size();) {
            const size_t end = std::min(rows.find_first_of("\t\r", at), rows.size());
            joined += rows.substr(at, end - at);
            at = std::min(rows.find_first_not_of("\t\r\n", end), rows.size());
            joined += at < rows.size() ? separator : "\r\n";
        }
        EXPECT_EQ(Rewritten(golden.substr(0, begin) + joined), body) << separator;
        const std::string twice = golden.substr(0, begin) + joined + joined;
        EXPECT_EQ(Rewritten(twice), body) << "the last rows of a span count";
    }
}

TEST_F(SectionReaderTest, ReferencesOutOfRangeAreKept) {
    const std::string text = Replaced(golden, " 2 \t0\t-0.5\t 0 \t 0 \t 1 \t 3 \t",
                                      " 2 \t0\t-0.5\t 0 \t 0 \t 99 \t-7 \t");
    const SectionModel section = ReadText(text);
    EXPECT_EQ(section.panels[1].nodes[0].onStrake, 99);
    EXPECT_EQ(section.panels[1].nodes[0].onNode, -7);
}

TEST_F(SectionReaderTest, ReaderStopsAtTheNextModel) {
    const size_t marker = golden.find(FetchStructuralLines().modelMarker);
    const std::string block = golden.substr(marker);
    const std::string cut = block.substr(0, block.find("------------------ PLATES"));
    const std::string text = golden.substr(0, marker) +
                             Replaced(cut, "\r\n 7 \r\nSECTION", "\r\n 3 \r\nSECTION") + block;
    test::WriteFileBytes(path, text);
    SectionModel section;
    ASSERT_TRUE(ReadSectionBlock(path, 3, false, section));
    EXPECT_EQ(section.panels[0].nodes.size(), 3u);
    EXPECT_TRUE(section.panels[0].plates.empty());
    EXPECT_TRUE(section.compartments.empty());
    ASSERT_TRUE(ReadSectionBlock(path, 7, false, section));
    EXPECT_EQ(BodyText(section), body);
}

TEST_F(SectionReaderTest, OldContentsOfTheRecordAreGone) {
    test::WriteFileBytes(path, test::ReadFileBytes(test::DataPath("golden/section_bare.ve2")));
    SectionModel section = test::FullSection();
    section.tolerance_m = 5;
    ASSERT_TRUE(ReadSectionBlock(path, 7, false, section));
    EXPECT_TRUE(section.panels.empty());
    EXPECT_TRUE(section.compartments.empty());
    EXPECT_EQ(section.tolerance_m, 0.001f);
    EXPECT_EQ(section.shipType, 0);
}

}  // namespace
}  // namespace corvane
