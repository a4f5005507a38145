// WriteSectionBlock: the block byte for byte.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>

#include "database/scanning.h"
#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/messages.h"
#include "tests/database/section_sample.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::BodyText;
using test::FullSection;

bool Has(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

// A section with one panel that has nothing.
SectionModel OnePanel() {
    SectionModel section;
    section.identifier = "ID";
    section.panels.resize(1);
    return section;
}

struct SectionWriterTest : testing::Test {
    test::RecordedReports screen;
};

TEST_F(SectionWriterTest, SectionWithoutPanelsIsTheBareGoldenBlock) {
    const std::string golden = test::ReadFileBytes(test::DataPath("golden/section_bare.ve2"));
    SectionModel section;
    section.name = L"Bare";
    section.identifier = "ID-0002";
    EXPECT_EQ(BodyText(section), test::BodyOf(golden));
}

TEST_F(SectionWriterTest, SectionWithoutCompartmentsHasNeitherOfTheirTables) {
    SectionModel section = FullSection();
    section.compartments.clear();
    const std::string text = BodyText(section);
    EXPECT_FALSE(Has(text, GetMessageBytes(kMsgCompartmentSizeTable)));
    EXPECT_FALSE(Has(text, GetMessageBytes(kMsgCompartmentTable)));
    EXPECT_TRUE(Has(text, GetMessageBytes(kMsgStiffenerTable)));
}

TEST_F(SectionWriterTest, PanelsWithoutStiffenersHaveNeitherStiffenerNorSpanTable) {
    SectionModel section = FullSection();
    section.panels[0].stiffeners.clear();
    section.panels[0].stiffenerDetails.clear();
    const std::string text = BodyText(section);
    EXPECT_FALSE(Has(text, GetMessageBytes(kMsgStiffenerTable)));
    EXPECT_FALSE(Has(text, GetMessageBytes(kMsgSpanTable)));
    EXPECT_FALSE(Has(text, GetMessageBytes(kMsgFatigueTable)));
    EXPECT_TRUE(Has(text, GetMessageBytes(kMsgCompartmentTable)));
}

TEST_F(SectionWriterTest, StiffenersWithoutSpansStillOpenTheSpanTable) {
    SectionModel section = OnePanel();
    section.panels[0].stiffeners.resize(1);
    const std::string text = BodyText(section);
    EXPECT_TRUE(Has(text, GetMessageBytes(kMsgSpanTable)));
    EXPECT_TRUE(text.ends_with(GetMessageBytes(kMsgSpanLegend) + "\r\n"));
}

TEST_F(SectionWriterTest, PanelNodeAndPlateTablesAreThereWithoutRows) {
    SectionModel section;
    const std::string text = BodyText(section);
    EXPECT_TRUE(Has(text, GetMessageBytes(kMsgPanelTable)));
    EXPECT_TRUE(Has(text, GetMessageBytes(kMsgNodeTable)));
    EXPECT_TRUE(Has(text, GetMessageBytes(kMsgPlateTable)));
    for (const MessageNumber label : {kMsgBracketTable, kMsgOpeningTable, kMsgPillarTable,
                                      kMsgFatigueTable, kMsgStiffenerTable}) {
        EXPECT_FALSE(Has(text, GetMessageBytes(label)));
    }
}

TEST_F(SectionWriterTest, IdentifierIsCutAtItsFirstNul) {
    test::FakeFunction fake(GenerateID, [](char* buffer, int32_t size) {
        ASSERT_GT(size, 8);
        const char text[] = "AB\0CD";
        std::copy_n(text, sizeof text, buffer);
    });
    SectionModel section = OnePanel();
    section.identifier.clear();
    BodyText(section);
    EXPECT_EQ(section.identifier, "AB");
}

TEST_F(SectionWriterTest, TwoSectionsGetDifferentIdentifiers) {
    SectionModel first;
    SectionModel second;
    BodyText(first);
    BodyText(second);
    EXPECT_NE(first.identifier, second.identifier);
}

TEST_F(SectionWriterTest, NegativeComponentsAreWrittenAsMagnitudesAndStayInTheRecord) {
    SectionModel section = OnePanel();
    section.stillWaterMoment_kNm = {{-1, 2, -3}};
    section.waveMoment_kNm = {{4, -5, 6}};
    section.shearForce_kN = {{-7, -8, -0.5f}};
    EXPECT_TRUE(Has(BodyText(section), "\r\n1\t4\t7\r\n2\t5\t8\r\n3\t6\t0.5\r\n"));
    EXPECT_EQ(section.stillWaterMoment_kNm(1), -1);
}

TEST_F(SectionWriterTest, AnyValidFlagIsWrittenAsMinusOne) {
    SectionModel section = OnePanel();
    section.resultsValid = 1;
    EXPECT_TRUE(Has(BodyText(section), " 0 \t 0 \t 0 \t 0  0  0  0  0 -1 \r\n"));
}

TEST_F(SectionWriterTest, NumbersWithoutTextAreZero) {
    SectionModel section = OnePanel();
    section.deckModulus_m3 = std::numeric_limits<float>::quiet_NaN();
    section.bottomModulus_m3 = std::numeric_limits<float>::infinity();
    EXPECT_TRUE(Has(BodyText(section), "\r\n0\t0\t0\r\n 0 \t 0 \r\n"));
}

TEST_F(SectionWriterTest, PanelNameIsPaddedAndCutToFortyCharacters) {
    SectionModel section = OnePanel();
    section.panels[0].name = L"Deck";
    EXPECT_TRUE(Has(BodyText(section), "\r\nDeck" + std::string(36, ' ') + "\t 0 \t"));
    section.panels[0].name = std::wstring(45, L'x');
    EXPECT_TRUE(Has(BodyText(section), "\r\n" + std::string(40, 'x') + "\t 0 \t"));
}

// What a name is made of when it looks like another kind of line.
TEST_F(SectionWriterTest, NamesNeverMakeOtherLines) {
    const std::string marker = FetchStructuralLines().modelMarker;
    const struct {
        std::string name;
        std::string line;
        std::string inTable = {};  // where it is another one there
    } cases[] = {
        {"* star", " * star"},
        {"------ dashes", "------ dashes", "_----- dashes"},
        {"   ------", "------", "_-----"},
        {GetMessageBytes(kMsgPanelTable), '_' + GetMessageBytes(kMsgPanelTable).substr(1)},
        {marker, " " + marker},
        {"two\r\nlines\tand a tab", "two  lines and a tab"},
        {"  blanks  ", "blanks"},
        {"", ""},
    };
    for (const auto& [name, line, inTable] : cases) {
        SectionModel section = OnePanel();
        section.name = system::WideFromAnsi(name);
        section.compartments.resize(1);
        section.compartments[0].name = section.name;
        const std::string text = BodyText(section);
        EXPECT_TRUE(Has(text, "\r\n" + line + "\r\n 0 \t 0 \t 0 \t 0 \t 0 \t")) << name;
        EXPECT_TRUE(Has(text, "\r\n" + (inTable.empty() ? line : inTable) +
                                  "\r\n 0 \t 0 \r\n 0 \t 0 \t 0 \t 0 \r\n"))
            << name;
    }
}

TEST_F(SectionWriterTest, BetweenCompartmentsIsOneCommentRule) {
    SectionModel section = OnePanel();
    section.compartments.resize(3);
    const std::string last = "\r\n 0 \t 0 \t 0 \t 0 \t 0 \t 0 \r\n";
    const std::string text = BodyText(section);
    size_t rules = 0;
    for (size_t at = text.find(last + "*\r\n\r\n"); at != std::string::npos;
         at = text.find(last + "*\r\n\r\n", at + 1)) {
        ++rules;
    }
    EXPECT_EQ(rules, 2u);
    EXPECT_TRUE(text.ends_with(last));
}

TEST_F(SectionWriterTest, OutlineEndsAfterTheFirstPairWhoseNodeIsZero) {
    SectionModel section = OnePanel();
    section.compartments.resize(1);
    section.compartments[0].outline = {{1, 2}, {3, 0}, {4, 5}};
    EXPECT_TRUE(Has(BodyText(section), "\r\n 1 \t 2 \t 3 \t 0 \r\n 0 \t"));
}

TEST_F(SectionWriterTest, RowsHoldFourHundredNumbers) {
    SectionModel section = OnePanel();
    section.compartments.resize(1);
    section.compartments[0].outline.resize(500, {1, 1});
    section.compartments[0].levels.resize(500, {1, 1, 1});
    const std::string text = test::BlockText(section, 1);
    const SectionModel read = test::ReadText(text);
    ASSERT_EQ(read.compartments.size(), 1u);
    EXPECT_EQ(read.compartments[0].outline.size(), 199u);
    EXPECT_EQ(read.compartments[0].levels.size(), 133u);
    EXPECT_EQ(read.compartments[0].closing, 0);
}

TEST_F(SectionWriterTest, MissingDetailsOfStiffenersAreAddedAsEmptyOnes) {
    SectionModel section = OnePanel();
    section.panels[0].stiffeners.resize(3);
    BodyText(section);
    EXPECT_EQ(section.panels[0].stiffenerDetails.size(), 3u);
}

}  // namespace
}  // namespace corvane
