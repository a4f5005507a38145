// The words of the picture: what is under the pointer, what was clicked on, what was measured, and
// the switches that the settings keep.
#include "shell/picture_facts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "database/section_block.h"
#include "files/file_system.h"
#include "preview/section_geometry.h"
#include "preview/section_hit.h"
#include "report/messages.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"
#include "text/numbers.h"

namespace corvane {
namespace {

constexpr double kReach_m = 0.1;

// The midship section of the sample ship: double bottom, hopper and topside tanks.
struct PictureFactsTest : testing::Test {
    test::FakeView view;
    SectionModel section;

    PictureFactsTest() {
        EXPECT_TRUE(
            ReadSectionBlock(test::DataPath("../samples/aurora_bay.ve2"), 5, false, section));
    }
    ~PictureFactsTest() override = default;

    std::wstring Line(double y, double z) { return PlaceLine(section, {{y, z}, kReach_m}); }
    std::wstring Facts(std::vector<ShipPoint> points) {
        std::vector<PicturePlace> places;
        for (const ShipPoint point : points) places.push_back({point, kReach_m});
        return PlaceFacts(section, places);
    }
    void Annotate(const PictureOptions& options, const std::vector<PicturePlace>& places,
                  Figure& figure) {
        LibraryView computed;
        ComputeSection(section, computed);
        AnnotatePicture({section, computed.section}, options, places, figure);
    }
    // Where the first stiffener row of a panel begins, a little above its foot.
    ShipPoint OnStiffener(size_t panel) {
        PlaceLine(section, {});  // computes the section
        const Stiffener& stiffener = section.panels[panel].stiffeners.front();
        return {stiffener.y + stiffener.normalY * 0.15, stiffener.z + stiffener.normalZ * 0.15};
    }
    size_t PanelNamed(const wchar_t* name) const {
        const auto found = std::ranges::find(section.panels, name, &Panel::name);
        EXPECT_NE(found, section.panels.end());
        return static_cast<size_t>(found - section.panels.begin());
    }
};

bool Has(const std::wstring& text, const std::wstring& part) {
    return text.find(part) != std::wstring::npos;
}

TEST_F(PictureFactsTest, NothingThereSaysTheCoordinatesAlone) {
    EXPECT_EQ(Line(-3.25, 30), L"y -3.250 m, z 30.000 m");
    EXPECT_EQ(Facts({{-3.25, 30}}), L"y\t-3.250 m\rz\t30.000 m\r");
    EXPECT_EQ(Facts({}), L"");
}

TEST_F(PictureFactsTest, PlateSaysPanelThicknessAndMaterial) {
    const size_t index = PanelNamed(L"Inner bottom");
    PlaceLine(section, {});
    const Panel& panel = section.panels[index];
    const Plate& plate = panel.plates.front();
    const Node& first = panel.nodes.front();
    const double y = first.y + 0.5;
    ASSERT_GT(plate.end_m, 0.6);
    const std::wstring panelText = std::to_wstring(index + 1) + L" Inner bottom";
    const std::wstring plateText = L"1 of " + std::to_wstring(panel.plates.size());
    EXPECT_EQ(
        Line(y, first.z + 0.02),
        FormatMessage(kMsgPlaceLine, {DecimalText(y, 3, 3), DecimalText(first.z + 0.02, 3, 3)}) +
            L"   Panel " + panelText + L", plate " + plateText + L": " +
            DecimalText(double{plate.thickness_mm}, 0, 2) + L" mm, material " +
            std::to_wstring(plate.material));
    const std::wstring facts = Facts({{y, first.z + 0.02}});
    EXPECT_TRUE(Has(facts, L"z\t" + DecimalText(double{first.z}, 3, 3) + L" m\r"))
        << "a place on the plate, not beside it: " << test::Narrow(facts);
    EXPECT_TRUE(Has(facts, L"Panel\t" + panelText + L"\rPlate\t" + plateText + L"\rThickness\t"));
    EXPECT_TRUE(Has(facts, L"Along the panel\t0.500 m\r"));
}

TEST_F(PictureFactsTest, StiffenerSaysProfileSpacingAndLength) {
    const size_t index = PanelNamed(L"Inner bottom");
    const ShipPoint at = OnStiffener(index);
    const Stiffener& row = section.panels[index].stiffeners.front();
    const Span& span = section.panels[index].stiffenerDetails.front().spans.front();
    const std::wstring line = Line(at.y, at.z);
    EXPECT_TRUE(Has(line, L"stiffener 1 (1 of " + std::to_wstring(row.count) + L"): "))
        << test::Narrow(line);
    EXPECT_TRUE(Has(line, DecimalText(double{span.scantlings.webHeight_mm}, 0, 2) + L" x " +
                              DecimalText(double{span.scantlings.webThickness_mm}, 0, 2)))
        << test::Narrow(line);
    const std::wstring facts = Facts({at});
    EXPECT_TRUE(Has(facts, L"Spacing\t" + DecimalText(double{row.spacing}, 3, 3) + L" m\r"));
    EXPECT_TRUE(Has(facts, L"Length\t" + DecimalText(double{span.length_m}, 3, 3) + L" m\r"));
}

TEST_F(PictureFactsTest, ProfilesAreNamed) {
    const size_t index = PanelNamed(L"Inner bottom");
    const ShipPoint at = OnStiffener(index);
    Scantlings& profile = section.panels[index].stiffenerDetails.front().spans.front().scantlings;
    profile = {kProfileTee, 400, 12, 120, 20, 0};
    EXPECT_TRUE(Has(Line(at.y, at.z), L"tee 400 x 12 / 120 x 20"));
    profile.type = kProfileAngle;
    EXPECT_TRUE(Has(Line(at.y, at.z), L"angle 400 x 12 / 120 x 20"));
    profile.type = kProfileBulb;
    EXPECT_TRUE(Has(Line(at.y, at.z), L"bulb 400 x 12,"));
    profile.type = kProfileFlat;
    EXPECT_TRUE(Has(Line(at.y, at.z), L"flat 400 x 12,"));
}

TEST_F(PictureFactsTest, CompartmentSaysAreaAndContents) {
    const std::wstring line = Line(4, 10);
    EXPECT_TRUE(Has(line, L"Cargo hold: ")) << test::Narrow(line);
    EXPECT_TRUE(Has(line, L" m2, contents 2"));
    EXPECT_TRUE(Has(Facts({{4, 10}}), L"Compartment\tCargo hold\rArea\t"));
}

TEST_F(PictureFactsTest, SecondPlaceIsMeasuredFromTheFirst) {
    const std::wstring facts = Facts({{1, 10}, {4, 14}});
    EXPECT_TRUE(Has(facts,
                    L"y\t4.000 m\rz\t14.000 m\rDistance\t5.000 m\rdy\t3.000 m\r"
                    L"dz\t4.000 m\r"))
        << test::Narrow(facts);
}

TEST_F(PictureFactsTest, SectionWithoutSpansOrPlatesIsDescribedAllTheSame) {
    const size_t index = PanelNamed(L"Inner bottom");
    const ShipPoint at = OnStiffener(index);
    Panel& panel = section.panels[index];
    panel.stiffenerDetails.clear();
    EXPECT_TRUE(Has(Line(at.y, at.z), L"length 0.000 m"));
    panel.plates.clear();
    panel.thickness_mm = 14.5F;
    const Node& first = panel.nodes.front();
    EXPECT_TRUE(Has(Line(first.y + 0.5, first.z), L"plate -: 14.5 mm"));
}

TEST_F(PictureFactsTest, MarksAndTheirDistanceAreOnThePicture) {
    Figure figure = MakeFigure(300, 300, 10, {10, 10});
    Annotate({}, {}, figure);
    EXPECT_TRUE(figure.items.empty());
    Annotate({}, {{{1, 10}, kReach_m}}, figure);
    EXPECT_EQ(figure.items.size(), 2U) << "a cross";
    EXPECT_TRUE(figure.texts.empty());
    figure = MakeFigure(300, 300, 10, {10, 10});
    Annotate({}, {{{1, 10}, kReach_m}, {{4, 14}, kReach_m}}, figure);
    EXPECT_EQ(figure.items.size(), 6U) << "two crosses, the line between them, its length";
    EXPECT_EQ(figure.texts, std::vector<std::wstring>{L"5.000 m"});
}

TEST_F(PictureFactsTest, SwitchesPutTheirPartsOnThePicture) {
    PictureOptions options;
    options.hasPanelNames = true;
    options.hasThickness = true;
    Figure figure = MakeFigure(400, 400, 10, {10, 10});
    Annotate(options, {}, figure);
    EXPECT_TRUE(std::ranges::count(figure.texts, L"Inner bottom") == 1);
    EXPECT_TRUE(std::ranges::count(figure.texts, L"28 mm") == 1) << "the thickest plate";
}

TEST_F(PictureFactsTest, SettingsKeepTheSwitches) {
    const test::TemporaryFolder folder;
    const std::wstring file = folder.File(L"Corvane.ini");
    EXPECT_EQ(ReadPictureOptions(file), PictureOptions()) << "off at first";
    PictureOptions options;
    options.hasAxes = true;
    options.hasThickness = true;
    ASSERT_TRUE(WritePictureOptions(file, options));
    EXPECT_EQ(ReadPictureOptions(file), options);
    ASSERT_TRUE(WritePictureOptions(file, {}));
    EXPECT_EQ(ReadPictureOptions(file), PictureOptions());
}

}  // namespace
}  // namespace corvane
