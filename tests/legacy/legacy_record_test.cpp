// A section in the legacy form, byte by byte, and what an import makes of it.
#include "legacy/section_from_legacy.h"
#include "legacy/section_to_legacy.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/grvelk.h"
#include "report/messages.h"
#include "tests/companions/section_builder.h"
#include "tests/database/section_sample.h"
#include "tests/legacy/legacy_support.h"
#include "tests/support/recorded_reports.h"

namespace corvane {
namespace {

using namespace test;

constexpr size_t kGeometry = 112;

struct LegacyRecord : testing::Test {
    RecordedReports screen;
    SectionModel section;
    std::unique_ptr<LegacySectionRecord> record;

    void Export() { record = RecordOf(section); }
    template <class Number>
    Number MainAt(size_t offset) const {
        return ValueAt<Number>(*record, offset);
    }
    template <class Number>
    Number GeometryAt(size_t offset) const {
        return ValueAt<Number>(*record, kGeometry + offset);
    }
    std::string TextAt(size_t offset, size_t length) const {
        return {reinterpret_cast<const char*>(record.get()) + offset, length};
    }
    // The given node alone on a strake with a second one, exported; for its tables.
    void ExportNode(const Node& node) {
        section.panels.clear();
        section.panels.push_back(PanelOfNodes(2, 0, 1));
        section.panels.emplace_back().nodes = {node, GivenNode(30, 30)};
        Export();
    }
};

// ---- Main block --------------------------------------------------------------------------------

TEST_F(LegacyRecord, HeadIsInTheMainBlock) {
    section = FullSection();
    section.stillWaterMoment_kNm(2) = -1800;  // a file has magnitudes
    section.waveMoment_kNm(2) = -2600;
    section.moduliAbsent = 0;
    Export();
    EXPECT_EQ(TextAt(0, 40), "Frame 100" + std::string(31, '\0'));
    const std::pair<size_t, float> singles[] = {
        {40, 12.5F}, {44, 32.2F}, {48, 19},     {52, 12.5F},   {72, 0.8F},
        {76, 3.2F},  {80, 1500},  {84, -1800},  {88, 900.5F},  {92, 2500},
        {96, -2600}, {100, 0},    {104, 20.5F}, {108, 25.125F}};
    for (const auto& [offset, value] : singles) EXPECT_EQ(MainAt<float>(offset), value) << offset;
    EXPECT_EQ(MainAt<int16_t>(64), 3);
    EXPECT_EQ(MainAt<int16_t>(66), 1);
    EXPECT_EQ(MainAt<int16_t>(68), -2);
    EXPECT_EQ(TextAt(56, 8), std::string(8, '\0'));
    EXPECT_EQ(TextAt(70, 2), std::string(2, '\0'));
}

TEST_F(LegacyRecord, ModuliThatAreAbsentGoOutAsZeros) {
    section = FullSection();
    ASSERT_EQ(section.moduliAbsent, -1);
    Export();
    EXPECT_EQ(TextAt(104, 8), std::string(8, '\0'));
}

TEST_F(LegacyRecord, ModuliOfZeroComeInAbsentAndGoOutAsZeros) {
    for (const bool first : {false, true}) {
        section.deckModulus_m3 = first ? 0.0F : 20;
        section.bottomModulus_m3 = first ? 20.0F : 0;
        Export();
        section = SectionOf(*record);
        EXPECT_EQ(section.moduliAbsent, -1);
        Export();
        EXPECT_EQ(TextAt(104, 8), std::string(8, '\0'));
    }
}

TEST_F(LegacyRecord, ModuliThatAreThereComeInPresent) {
    section.deckModulus_m3 = 20;
    section.bottomModulus_m3 = 25;
    Export();
    EXPECT_EQ(SectionOf(*record).moduliAbsent, 0);
}

TEST_F(LegacyRecord, StillWaterMomentOfZeroInHoggingOrSaggingIsAbsence) {
    for (int zero = 1; zero <= 3; ++zero) {
        section.stillWaterMoment_kNm = {{1, 1, 1}};
        section.waveMoment_kNm = {{0, 0, 0}};
        section.stillWaterMoment_kNm(zero) = 0;
        Export();
        EXPECT_EQ(SectionOf(*record).momentsAbsent, zero <= 2 ? -1 : 0) << zero;
    }
}

TEST_F(LegacyRecord, ImportSetsSlopesRulesAndToleranceWhateverTheRecordHolds) {
    section = FullSection();
    section.tolerance_m = 0.5F;
    section.bottomSlope_deg = 10;
    section.sideSlope_deg = 11;
    section.stressRule = 7;
    section.bucklingRule = 8;
    Export();
    const SectionModel back = SectionOf(*record);
    EXPECT_EQ(back.tolerance_m, 0.001F);
    EXPECT_EQ(back.bottomSlope_deg, 30);
    EXPECT_EQ(back.sideSlope_deg, 45);
    EXPECT_EQ(back.stressRule, 1);
    EXPECT_EQ(back.bucklingRule, 2);
    EXPECT_TRUE(back.identifier.empty());
}

TEST_F(LegacyRecord, LongNameIsCutToForty) {
    section.name = std::wstring(60, L'n');
    Export();
    EXPECT_EQ(TextAt(0, 44), std::string(40, 'n') + std::string(4, '\0'));
    EXPECT_EQ(SectionOf(*record).name, std::wstring(40, L'n'));
}

// ---- Strakes and nodes -------------------------------------------------------------------------

TEST_F(LegacyRecord, StrakesAreInTheirTables) {
    section.panels = {PanelOfNodes(3, 0, 1), PanelOfNodes(2, 1, 2)};
    section.panels[1].name = L"Inner bottom, a long name of a panel";
    section.panels[1].spacing_m = 0.8F;
    section.panels[1].span_m = 3.2F;
    section.panels[1].thickness_mm = 17.5F;
    Export();
    EXPECT_EQ(GeometryAt<int16_t>(0), 2);
    EXPECT_EQ(GeometryAt<int16_t>(2), 0);
    EXPECT_EQ(GeometryAt<float>(4 + 4), 0.8F);
    EXPECT_EQ(GeometryAt<float>(124 + 4), 3.2F);
    EXPECT_EQ(GeometryAt<float>(244 + 4), 17.5F);
    EXPECT_EQ(TextAt(kGeometry + 364 + 26, 26), "Inner bottom, a long name ");
    EXPECT_EQ(GeometryAt<int16_t>(1144), 1);
    EXPECT_EQ(GeometryAt<int16_t>(1144 + 2), 4);
    EXPECT_EQ(GeometryAt<int16_t>(1204), 3);
    EXPECT_EQ(GeometryAt<int16_t>(1204 + 2), 3);
    EXPECT_EQ(GeometryAt<int16_t>(4480 + 2), 2);
    EXPECT_EQ(GeometryAt<int16_t>(4540 + 2), 1);
    EXPECT_EQ(GeometryAt<int16_t>(4540 + 4), 0) << "no third strake";
}

TEST_F(LegacyRecord, NodeWithCoordinatesDefinesAPoint) {
    section.panels = {PanelOfNodes(2, 1, 1), PanelOfNodes(2, 0, 2)};
    Export();
    // Node 3 has an offset; node 4 is the first of the second strake.
    EXPECT_EQ(GeometryAt<int16_t>(1264 + 2 * 1), 2);
    EXPECT_EQ(GeometryAt<int16_t>(1264 + 2 * 2), 0);
    EXPECT_EQ(GeometryAt<int16_t>(1264 + 2 * 3), 3);
    EXPECT_EQ(GeometryAt<int16_t>(3880 + 2 * 2), 1);
    EXPECT_EQ(GeometryAt<int16_t>(3880 + 2 * 4), 0);
    EXPECT_EQ(GeometryAt<float>(4000 + 4 * 3), 1);
    EXPECT_EQ(GeometryAt<float>(4240 + 4 * 3), 2);
    EXPECT_EQ(GeometryAt<float>(2864 + 4 * 4), 1);
    EXPECT_EQ(GeometryAt<float>(3264 + 4 * 4), 2);
}

TEST_F(LegacyRecord, ClassAndCodeGiveTheKindOfANode) {
    struct Expected {
        Node node;
        int16_t nodeClass, code;
    };
    const Expected nodes[] = {{GivenNode(5, 5), 0, 0},
                              {NodeAtY(1, 0.5F), 0, 2},
                              {OffsetNode({1, 1}, 5, 5), 1, 0},
                              {CoincidentNode({1, 2}), 1, 2},
                              {LineNode(1, {0.5F, -5, 0.5F, 5}), 2, 0}};
    for (const Expected& expected : nodes) {
        ExportNode(expected.node);
        EXPECT_EQ(GeometryAt<int16_t>(2664 + 2 * 2), expected.nodeClass) << expected.node.kind;
        EXPECT_EQ(GeometryAt<int16_t>(1464 + 2 * 2), expected.code) << expected.node.kind;
        EXPECT_EQ(SectionOf(*record).panels[1].nodes[0].kind, expected.node.kind);
        EXPECT_TRUE(RecordedReports::Of("lost").empty()) << expected.node.kind;
    }
}

TEST_F(LegacyRecord, ReferenceOfANodeLosesItsSign) {
    Node node = GivenNode(5, 5);
    node.onStrake = -7;
    node.onNode = -8;
    ExportNode(node);
    EXPECT_EQ(GeometryAt<int16_t>(1664 + 2 * 2), 7);
    EXPECT_EQ(GeometryAt<int16_t>(1864 + 2 * 2), -8);
}

TEST_F(LegacyRecord, NodeOnANodeThatDoesNotExistIsReported) {
    ExportNode(OffsetNode({1, 3}, 1, 1));
    const std::vector<std::string> lost = RecordedReports::Of("lost");
    EXPECT_EQ(lost.back(), LossText(3590, {2, 1}));
    EXPECT_EQ(SectionOf(*record).panels[1].nodes[0].onNode, 3) << "it is kept as it is";
}

TEST_F(LegacyRecord, NodeOfAnotherKindIsReportedAndGivenByItsCoordinates) {
    Node node = GivenNode(5, 6);
    node.kind = 9;
    ExportNode(node);
    const std::vector<std::string> lost = RecordedReports::Of("lost");
    EXPECT_EQ(lost.back(), LossText(3591, {2, 1}));
    const SectionModel back = SectionOf(*record);
    EXPECT_EQ(back.panels[1].nodes[0].kind, kNodeGiven);
    EXPECT_EQ(back.panels[1].nodes[0].givenY, 5);
    EXPECT_EQ(back.panels[1].nodes[0].givenZ, 6);
}

TEST_F(LegacyRecord, ImportReadsTheCoordinatesOfPoints) {
    section.panels = {PanelOfNodes(2, 0, 1)};
    Export();
    record->geometry.pointY[1] = 8;
    record->geometry.pointZ[1] = 9;
    const Node node = SectionOf(*record).panels[0].nodes[1];
    EXPECT_EQ(node.givenY, 8);
    EXPECT_EQ(node.givenZ, 9);
    EXPECT_EQ(node.y, 8) << "computed";
}

TEST_F(LegacyRecord, NodeWhosePointIsNotUsedHasItsOwnCoordinates) {
    section.panels = {PanelOfNodes(2, 0, 1)};
    Export();
    record->geometry.pointUsed[1] = 0;
    record->geometry.nodePoint[0] = 99;
    const SectionModel back = SectionOf(*record);
    EXPECT_EQ(back.panels[0].nodes[1].givenY, 1);
    EXPECT_EQ(back.panels[0].nodes[0].givenZ, 1);
}

TEST_F(LegacyRecord, CompartmentHasAreaAndCentreOfItsOutline) {
    Panel panel;
    panel.nodes = {GivenNode(0, 0), GivenNode(4, 0), GivenNode(4, 3), GivenNode(0, 3)};
    section.panels = {panel};
    Compartment& tank = section.compartments.emplace_back();
    tank.outline = {{1, 1}, {1, 2}, {1, 3}, {1, 4}};
    Export();
    const LegacyCompartment& legacy = record->geometry.compartments[0];
    EXPECT_EQ(legacy.area_m2, 12);
    EXPECT_EQ(legacy.centreY, 2);
    EXPECT_EQ(legacy.centreZ, 1.5F);
    EXPECT_EQ(tank.area_m2, 12) << "stored in the section, too";
    EXPECT_EQ(legacy.nodeCount, 4);
    EXPECT_EQ(legacy.nodes[3], 4);
}

// A quarter of a circle of 2 m about the origin, in two arcs, and a strake from the origin.
struct ArcTest : LegacyRecord {
    void SetUp() override {
        const auto half = static_cast<float>(std::sqrt(2));
        Panel& round = section.panels.emplace_back();
        round.nodes = {RadiusNode(2, 0, 2), RadiusNode(half, half, 2), GivenNode(0, 2)};
        section.panels.emplace_back().nodes = {GivenNode(0, 0), GivenNode(2, 2)};
    }
    const LegacyCompartment& Exported(std::vector<NodeReference> outline) {
        section.compartments.resize(1);
        section.compartments[0].outline = std::move(outline);
        Export();
        return record->geometry.compartments[0];
    }
};
constexpr double kPi = 3.14159265358979;

TEST_F(ArcTest, CompartmentEndsAtTheRoundedPlating) {
    const auto centre = static_cast<float>(8 / (3 * kPi));
    for (const auto& outline : {std::vector<NodeReference>{{1, 1}, {1, 2}, {1, 3}, {2, 1}},
                                std::vector<NodeReference>{{2, 1}, {1, 3}, {1, 2}, {1, 1}},
                                std::vector<NodeReference>{{1, 1}, {1, 3}, {2, 1}}}) {
        const LegacyCompartment& legacy = Exported(outline);
        EXPECT_FLOAT_EQ(legacy.area_m2, static_cast<float>(kPi)) << outline.size();
        EXPECT_FLOAT_EQ(legacy.centreY, centre) << outline.size();
        EXPECT_FLOAT_EQ(legacy.centreZ, centre) << outline.size();
    }
}

TEST_F(ArcTest, CompartmentOutsideOfTheRoundedPlatingIsSmaller) {
    const LegacyCompartment& legacy = Exported({{1, 1}, {2, 2}, {1, 3}, {1, 2}, {1, 1}});
    const double area = 4 - kPi;
    EXPECT_FLOAT_EQ(legacy.area_m2, static_cast<float>(area));
    EXPECT_FLOAT_EQ(legacy.centreY, static_cast<float>((4.0 - 8.0 / 3) / area));
    EXPECT_FLOAT_EQ(legacy.centreZ, static_cast<float>((4.0 - 8.0 / 3) / area));
}

TEST_F(ArcTest, BetweenTwoStrakesAndBackToTheFirstNodeTheOutlineIsStraight) {
    EXPECT_FLOAT_EQ(Exported({{1, 3}, {2, 1}, {1, 1}}).area_m2, 2);
    EXPECT_EQ(Exported({{1, 1}, {1, 1}}).area_m2, 0);
}

TEST_F(ArcTest, NearlyStraightArcAddsTheAreaOfAParabola) {
    for (const float radius : {240.0F, 260.0F, 100000.0F}) {
        section.panels[0].nodes = {RadiusNode(5, 0, radius), GivenNode(5, 5)};
        section.panels[1].nodes = {GivenNode(0, 5), GivenNode(0, 0)};
        const LegacyCompartment& legacy = Exported({{1, 1}, {1, 2}, {2, 1}, {2, 2}});
        const double sweep = 2 * std::asin(2.5 / radius);
        const double bow = double{radius} * radius / 2 * (sweep - std::sin(sweep));
        EXPECT_NEAR(legacy.area_m2, 25 + bow, 1e-4) << radius;
        EXPECT_NEAR(legacy.centreZ, 2.5, 1e-5) << radius;
        const double outside = 5 + 0.4 * bow / 5 * 1.5;
        EXPECT_NEAR(legacy.centreY, (62.5 + bow * outside) / (25 + bow), 1e-4) << radius;
    }
}

TEST_F(LegacyRecord, OutlineLosesNodesThatDoNotExist) {
    section.panels = {PanelOfNodes(2, 0, 1)};
    section.compartments.emplace_back().outline = {{1, 1}, {1, 3}, {2, 1}, {1, 2}};
    Export();
    const SectionModel back = SectionOf(*record);
    const std::vector<NodeReference> held{{1, 1}, {1, 2}};
    EXPECT_EQ(back.compartments.at(0).outline, held);
}

// ---- Places through the geometry library -------------------------------------------------------

struct PlaceTest : LegacyRecord {
    void SetUp() override {
        section.panels = {PanelOfNodes(2, 0, 1)};
        Panel& panel = section.panels[0];
        panel.nodes[1].givenY = 10;
        panel.stiffeners = {StiffenerAt(1, {1, 1}), StiffenerAt(0.5F, {1, 2})};
        panel.stiffeners[1].offset = -4;
        panel.stiffenerDetails.resize(2);
        panel.stiffenerDetails[0].spans.resize(1);
        panel.stiffenerDetails[1].spans.resize(2);
        panel.openings.resize(1);
        panel.openings[0].at = {1, 2};
        panel.pillars.resize(1);
        panel.pillars[0].offset_m = 2.5F;
        Export();
        RecordedReports::events.clear();
    }
    std::vector<std::string> LostInImport() {
        section = SectionOf(*record);
        return RecordedReports::Of("lost");
    }
};

TEST_F(PlaceTest, PlacesAreAbscissas) {
    const LegacyGeometry& legacy = record->geometry;
    EXPECT_EQ(legacy.stiffeners[0].s, 1);
    EXPECT_EQ(legacy.stiffeners[1].s, 6);
    EXPECT_EQ(legacy.stiffeners[1].offset, -4);
    EXPECT_EQ(legacy.spans[0].s, 1);
    EXPECT_EQ(legacy.spans[2].s, 6);
    EXPECT_EQ(legacy.spans[2].stiffener, 2);
    EXPECT_EQ(legacy.openings[0].s, 10);
    EXPECT_EQ(legacy.pillars[0].s, 2.5F);
    EXPECT_TRUE(LostInImport().empty());
}

TEST_F(PlaceTest, StiffenersAndSpansArePlacedByTheLibrary) {
    static int calls;
    calls = 0;
    static decltype(AbsStiff)::Pointer real;
    ASSERT_TRUE(AbsStiff.Resolve());
    real = AbsStiff.pointer;
    const FakeFunction fake(AbsStiff, [](Strake* all, int16_t count, int16_t k, Stiffener* item) {
        ++calls;
        return real(all, count, k, item);
    });
    Export();
    // Two in the computation of the geometry, then two stiffeners and three spans.
    EXPECT_EQ(calls, 2 + 2 + 3);
}

TEST_F(PlaceTest, FourTablesComeBackThroughTheLibrary) {
    static std::vector<float> places;
    places.clear();
    static decltype(RelStiff)::Pointer real;
    ASSERT_TRUE(RelStiff.Resolve());
    real = RelStiff.pointer;
    const FakeFunction fake(RelStiff, [](Strake* all, int16_t count, int16_t k, Stiffener* item) {
        places.push_back(item->s);
        return real(all, count, k, item);
    });
    LostInImport();
    EXPECT_EQ(places, (std::vector<float>{1, 6, 1, 6, 6, 10, 2.5F}))
        << "stiffeners, spans, openings, pillars";
}

TEST_F(PlaceTest, AbscissaCountsMoreThanTheOffset) {
    record->geometry.stiffeners[0].s = 2.25F;
    record->geometry.spans[0].s = 2.25F;
    EXPECT_TRUE(LostInImport().empty());
    EXPECT_EQ(section.panels[0].stiffeners[0].offset, 2.25F);
}

TEST_F(PlaceTest, OffsetBeyondAnEndIsKept) {
    section.panels[0].stiffeners[0].offset = -3;
    section.panels[0].stiffeners[1].offset = 7;
    Export();
    section = SectionOf(*record);
    EXPECT_EQ(section.panels[0].stiffeners[0].offset, -3);
    EXPECT_EQ(section.panels[0].stiffeners[1].offset, 7);
}

TEST_F(PlaceTest, StiffenerThatCannotBePlacedIsReportedAndKept) {
    record->geometry.stiffeners[1].onNode = 9;
    EXPECT_EQ(LostInImport(), std::vector<std::string>{LossText(2001, {2, 1, 2})});
    ASSERT_EQ(section.panels[0].stiffeners.size(), 2u);
    EXPECT_EQ(section.panels[0].stiffeners[1].offset, -4);
    EXPECT_EQ(section.panels[0].stiffenerDetails[1].spans.size(), 2u);
}

TEST_F(PlaceTest, StiffenerOfNoStrakeIsReportedAndLeftOutWithItsSpans) {
    record->geometry.stiffeners[0].strake = 4;
    EXPECT_EQ(LostInImport(),
              (std::vector<std::string>{LossText(2001, {1, 0, 0}), LossText(2013, {1, 1})}));
    ASSERT_EQ(section.panels[0].stiffeners.size(), 1u);
    EXPECT_EQ(section.panels[0].stiffeners[0].offset, -4);
    EXPECT_EQ(section.panels[0].stiffenerDetails[0].spans.size(), 2u);
}

TEST_F(PlaceTest, SpanOfNoStiffenerIsReportedAndLeftOut) {
    record->geometry.spans[1].stiffener = 3;
    EXPECT_EQ(LostInImport(), std::vector<std::string>{LossText(2013, {2, 3})});
    EXPECT_EQ(section.panels[0].stiffenerDetails[1].spans.size(), 1u);
}

TEST_F(PlaceTest, SpanThatIsElsewhereIsReportedAndLeftOut) {
    record->geometry.spans[0].s = 1.5F;
    EXPECT_EQ(LostInImport(), std::vector<std::string>{LossText(2013, {1, 1})});
    EXPECT_TRUE(section.panels[0].stiffenerDetails[0].spans.empty());
}

TEST_F(PlaceTest, OpeningAwayFromItsNodeIsReportedAndKept) {
    record->geometry.openings[0].s = 9;
    EXPECT_EQ(LostInImport(), std::vector<std::string>{LossText(2001, {1, 1, 2})});
    EXPECT_EQ(section.panels[0].openings.at(0).at, (NodeReference{1, 2}));
}

TEST_F(PlaceTest, OpeningAndPillarOfNoStrakeAreReportedAndLeftOut) {
    record->geometry.openings[0].strake = 0;
    record->geometry.pillars[0].strake = -1;
    EXPECT_EQ(LostInImport(),
              (std::vector<std::string>{LossText(2001, {1, 0, 0}), LossText(2001, {1, 0, 0})}));
    EXPECT_TRUE(section.panels[0].openings.empty());
    EXPECT_TRUE(section.panels[0].pillars.empty());
}

// ---- Records that hold anything ----------------------------------------------------------------

TEST_F(LegacyRecord, EmptyRecordIsAnEmptySection) {
    const auto empty = std::make_unique<LegacySectionRecord>();
    const SectionModel back = SectionOf(*empty);
    EXPECT_TRUE(back.name.empty());
    EXPECT_TRUE(back.panels.empty());
    EXPECT_TRUE(back.compartments.empty());
    EXPECT_TRUE(RecordedReports::Of("lost").empty());
}

TEST_F(LegacyRecord, AnyBytesAreARecord) {
    Chance chance(7);
    const auto any = std::make_unique<LegacySectionRecord>();
    for (int i = 0; i < 200; ++i) {
        auto* bytes = reinterpret_cast<unsigned char*>(any.get());
        for (size_t k = 0; k < sizeof(*any); ++k) {
            bytes[k] = static_cast<unsigned char>(chance.Below(i % 2 == 0 ? 256 : 3));
        }
        SectionModel back = SectionOf(*any);
        EXPECT_LE(back.panels.size(), 30u);
        EXPECT_LE(back.compartments.size(), 8u);
        RecordOf(back);
        RecordedReports::events.clear();
    }
}

}  // namespace
}  // namespace corvane
