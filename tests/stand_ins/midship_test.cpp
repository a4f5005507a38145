// The parametric midship section: it computes for all dimensions that its limits allow.
#include "stand_ins/midship.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "drafting/section_draft.h"
#include "platform/grvelk.h"
#include "tests/support/support.h"

namespace corvane::stand_ins {
namespace {

std::string TextOf(const MidshipParameters& p) {
    std::string text;
    for (const float value : {p.breadth, p.depth, p.doubleBottom, p.bilgeRadius, p.spacing}) {
        text += std::to_string(value) + " ";
    }
    return text;
}

// All combinations of small, usual and large dimensions that fit together.
std::vector<MidshipParameters> Range() {
    std::vector<MidshipParameters> all;
    for (const float breadth : {6.0F, 9.3F, 32.25F, 70.0F}) {
        for (const float depth : {3.0F, 12.0F, 19.6F, 40.0F}) {
            for (const float part : {0.0F, 0.4F, 1.0F}) {
                for (const float spacing : {0.4F, 0.8F, 1.2F}) {
                    for (const float radiusPart : {0.0F, 0.6F, 1.0F}) {
                        MidshipParameters p{breadth, depth, 0, 0, spacing};
                        const float most = std::min(10.0F, MostDoubleBottom(p));
                        p.doubleBottom = std::round((0.6F + part * (most - 0.6F)) * 1000) / 1000;
                        const float radius = 0.2F + radiusPart * (MostBilgeRadius(p) - 0.2F);
                        p.bilgeRadius = std::round(radius * 1000) / 1000;
                        all.push_back(p);
                    }
                }
            }
        }
    }
    return all;
}

// True of any section: seams in order within the panel, stiffeners on it, and compartments
// with an area.
void ExpectSound(SectionModel& section) {
    LibraryView view;
    MakeLibraryView(section, view);
    DrawingParameters parameters{};
    EXPECT_EQ(QuickCompute(&view.section, &parameters), 0);
    for (size_t i = 0; i < section.panels.size(); ++i) {
        const Panel& panel = section.panels[i];
        const float length = view.strakes[i].length;
        EXPECT_GT(length, 0) << test::Narrow(panel.name);
        float end = 0;
        for (const Plate& plate : panel.plates) {
            EXPECT_GT(plate.end_m, end) << test::Narrow(panel.name);
            EXPECT_GT(plate.thickness_mm, 0);
            end = plate.end_m;
        }
        EXPECT_NEAR(end, length, 0.002) << test::Narrow(panel.name);
        for (const Stiffener& row : panel.stiffeners) {
            EXPECT_GE(row.count, 1);
            EXPECT_GT(row.s, 0) << test::Narrow(panel.name);
            EXPECT_LT(row.s + static_cast<float>(row.count - 1) * row.spacing, length)
                << test::Narrow(panel.name);
        }
    }
}

TEST(MidshipTest, ComputesForAllDimensionsWithinTheLimits) {
    const std::vector<MidshipParameters> all = Range();
    ASSERT_GT(all.size(), 400U);
    for (const MidshipParameters& parameters : all) {
        SectionModel section;
        section.frameSpacing_m = 0.8F;
        section.webSpacing_m = 3.2F;
        ASSERT_EQ(DraftMidship(section, parameters), 0) << TextOf(parameters);
        ExpectSound(section);
        EXPECT_GT(section.area_m2, 0);
        EXPECT_GT(section.neutralAxis_m, 0);
        EXPECT_LT(section.neutralAxis_m, parameters.depth);
        EXPECT_GT(section.deckModulus_m3, 0);
        if (testing::Test::HasFailure()) FAIL() << TextOf(parameters);
    }
}

TEST(MidshipTest, HasItsDimensions) {
    SectionModel section;
    ASSERT_EQ(DraftMidship(section, {20, 12, 1.5F, 1.2F, 0.8F}), 0);
    EXPECT_EQ(section.breadth_m, 20.0F);
    EXPECT_EQ(section.depth_m, 12.0F);
    float highest = 0;
    float broadest = 0;
    for (const Panel& panel : section.panels) {
        for (const Node& node : panel.nodes) {
            highest = std::max(highest, node.z);
            broadest = std::max(broadest, node.y);
            EXPECT_GE(node.y, 0);
        }
    }
    EXPECT_FLOAT_EQ(broadest, 10);
    EXPECT_FLOAT_EQ(highest, 12.25F) << "the deck is cambered by 1/80 of the breadth";
    ASSERT_EQ(section.compartments.size(), 2U);
    // 12 - 1.5 m high.
    EXPECT_FLOAT_EQ(section.compartments[1].levels.back().level_m, 0.9F * 10.75F);
}

TEST(MidshipTest, ParametersAreFoundAgain) {
    const BasicShipData bsd;
    for (const MidshipParameters& parameters : Range()) {
        SectionModel section;
        ASSERT_EQ(DraftMidship(section, parameters), 0);
        const MidshipParameters found = ParametersOf(section, bsd);
        EXPECT_NEAR(found.doubleBottom, parameters.doubleBottom, 0.0001);
        EXPECT_TRUE(found == parameters) << TextOf(parameters) << "found " << TextOf(found);
        if (testing::Test::HasFailure()) break;
    }
}

TEST(MidshipTest, IsDistinguishedFromOtherSections) {
    const MidshipParameters parameters{20, 12, 1.5F, 1.2F, 0.8F};
    SectionModel section;
    ASSERT_EQ(DraftMidship(section, parameters), 0);
    EXPECT_TRUE(IsMidship(section, parameters));
    MidshipParameters other = parameters;
    other.spacing = 0.7F;
    EXPECT_FALSE(IsMidship(section, other));
    section.panels.pop_back();
    EXPECT_FALSE(IsMidship(section, parameters));
}

TEST(MidshipTest, UsualParametersOfAnyShipCanBeDrafted) {
    for (const float breadth : {0.0F, 1.0F, 6.0F, 12.0F, 32.25F, 500.0F}) {
        for (const float depth : {0.0F, 1.0F, 4.0F, 19.6F, 500.0F}) {
            BasicShipData bsd;
            bsd.MainData(2) = breadth;
            bsd.MainData(3) = depth;
            const MidshipParameters usual = UsualParameters(bsd);
            EXPECT_LE(usual.doubleBottom, MostDoubleBottom(usual));
            EXPECT_GE(usual.doubleBottom, kDoubleBottomRange.least);
            EXPECT_LE(usual.bilgeRadius, MostBilgeRadius(usual));
            EXPECT_GE(usual.bilgeRadius, kBilgeRadiusRange.least);
            SectionModel section;
            EXPECT_EQ(DraftMidship(section, usual), 0) << TextOf(usual);
        }
    }
}

TEST(MidshipTest, HeadHasTheShipsData) {
    BasicShipData bsd;
    bsd.TypeCodes(1) = 7;
    bsd.TypeCodes(2) = 4;
    bsd.MainData(6) = 9.5F;
    bsd.FrameZoneCount = 1;
    bsd.FrameNumbers(1) = 100;
    bsd.ZoneSpacing(1) = 0.75F;
    SectionModel section;
    section.x_m = 30;
    SetHead(section, bsd);
    EXPECT_EQ(section.shipType, 7);
    EXPECT_EQ(section.classCode, 4);
    EXPECT_EQ(section.draught_m, 9.5F);
    EXPECT_EQ(section.frameSpacing_m, 0.75F);
    EXPECT_EQ(section.webSpacing_m, 3.0F);
    EXPECT_EQ(section.momentsAbsent, -1);
    SetHead(section, BasicShipData());
    EXPECT_EQ(section.frameSpacing_m, 0.8F) << "a ship without frames";
}

}  // namespace
}  // namespace corvane::stand_ins
