// The sections of the sample ship: complete, in order, and plausible to a naval architect.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "database/section_file.h"
#include "tests/shell/sample_models.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::Area;
using test::kSectionCount;
using test::Place;
using test::SamplePath;
using test::SampleShipSection;

constexpr int32_t kMidship = 5;
constexpr int32_t kFirstHold = 2;
constexpr int32_t kLastHold = 8;

bool IsOn(Strake& strake, Place place) {
    float s = 0;
    int16_t item = 0;
    return YZToS(&strake, place.y, place.z, &s, &item, 0.005F) == 0;
}

// Direction of the strake next to an abscissa [degrees].
float DirectionAt(Strake& strake, float s) {
    constexpr float kStep_m = 0.01F;
    Place from{};
    Place to{};
    SToYZ(&strake, std::max(0.0F, s - kStep_m), &from.y, &from.z, 0.001F);
    SToYZ(&strake, std::min(strake.length, s + kStep_m), &to.y, &to.z, 0.001F);
    return std::atan2(to.z - from.z, to.y - from.y) * 57.29578F;
}

bool IsInside(const std::vector<Place>& corners, Place place) {
    bool inside = false;
    for (size_t i = 0; i < corners.size(); ++i) {
        const Place& a = corners[i];
        const Place& b = corners[(i + 1) % corners.size()];
        if ((a.z > place.z) == (b.z > place.z)) continue;
        const float y = a.y + (place.z - a.z) / (b.z - a.z) * (b.y - a.y);
        if (place.y < y) inside = !inside;
    }
    return inside;
}

// ---- Geometry ----------------------------------------------------------------------------------

TEST(SampleSections, AreComputedWithoutACode) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        const SampleShipSection section(number);
        ASSERT_TRUE(section.read) << number;
        EXPECT_EQ(section.code, 0) << number;
        EXPECT_EQ(section.view.section.geometryPresent, -1);
        EXPECT_EQ(section.view.section.symmetryMode, 0);
        EXPECT_GE(section.model.panels.size(), 13U) << number;
        for (const Panel& panel : section.model.panels) {
            for (const Node& node : panel.nodes) EXPECT_EQ(node.computed, -1);
        }
    }
}

TEST(SampleSections, MidshipHasTheShipsMainDimensions) {
    const SampleShipSection section(kMidship);
    float breadth = 0;
    for (const Panel& panel : section.model.panels) {
        for (const Node& node : panel.nodes) breadth = std::max(breadth, node.y);
    }
    EXPECT_FLOAT_EQ(breadth, 16.125F);
    const Place deckEdge = section.At({section.Panel(L"Main deck"), 1});
    EXPECT_FLOAT_EQ(deckEdge.y, 16.125F);
    EXPECT_FLOAT_EQ(deckEdge.z, 19.6F);
    EXPECT_GT(section.At({section.Panel(L"Main deck"), 2}).z, 19.85F) << "camber";
    EXPECT_FLOAT_EQ(section.At({section.Panel(L"Inner bottom"), 2}).z, 1.75F);
    EXPECT_NEAR(section.At({section.Panel(L"Topside slope"), 2}).z, 14, 0.001);
}

TEST(SampleSections, MidshipBilgeIsAQuarterOfACircle) {
    SampleShipSection section(kMidship);
    const Strake& bilge = section.StrakeOf(L"Bilge");
    ASSERT_EQ(bilge.itemCount, 1);
    EXPECT_NEAR(bilge.items[0].arcRadius, 1.6, 1e-4);
    EXPECT_NEAR(bilge.length, 1.6 * 3.14159265 / 2, 0.001);
}

TEST(SampleSections, BilgesTouchBottomAndSide) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        SampleShipSection section(number);
        Strake& bottom = section.StrakeOf(L"Bottom");
        Strake& bilge = section.StrakeOf(L"Bilge");
        Strake& side = section.StrakeOf(L"Side shell");
        EXPECT_NEAR(DirectionAt(bottom, bottom.length), DirectionAt(bilge, 0), 0.6) << number;
        EXPECT_NEAR(DirectionAt(bilge, bilge.length), DirectionAt(side, 0), 0.6) << number;
    }
}

TEST(SampleSections, SlopingPlatesLetCargoRun) {
    for (int32_t number = kFirstHold; number <= kLastHold; ++number) {
        SampleShipSection section(number);
        const float hopper = DirectionAt(section.StrakeOf(L"Hopper"), 1);
        EXPECT_GT(hopper, 40) << number;
        EXPECT_LT(hopper, 50) << number;
        EXPECT_NEAR(DirectionAt(section.StrakeOf(L"Topside slope"), 1), -30, 0.1) << number;
    }
}

// ---- Plates and stiffeners ---------------------------------------------------------------------

TEST(SampleSections, PlatesCoverTheirPanels) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        const SampleShipSection section(number);
        for (size_t i = 0; i < section.model.panels.size(); ++i) {
            const Panel& panel = section.model.panels[i];
            ASSERT_FALSE(panel.plates.empty()) << test::Narrow(panel.name);
            float start = 0;
            for (const Plate& plate : panel.plates) {
                EXPECT_GT(plate.end_m, start) << test::Narrow(panel.name);
                EXPECT_LT(plate.end_m - start, 3.1F) << test::Narrow(panel.name);
                EXPECT_GE(plate.thickness_mm, 9);
                EXPECT_LE(plate.thickness_mm, 30);
                start = plate.end_m;
            }
            EXPECT_NEAR(start, section.view.strakes[i].length, 0.001) << test::Narrow(panel.name);
        }
    }
}

TEST(SampleSections, StiffenersStandOnTheirPanels) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        const SampleShipSection section(number);
        int count = 0;
        for (size_t i = 0; i < section.model.panels.size(); ++i) {
            for (const Stiffener& row : section.model.panels[i].stiffeners) {
                EXPECT_NEAR(std::hypot(row.normalY, row.normalZ), 1, 1e-4);
                EXPECT_GT(row.s, 0.15F);
                EXPECT_LT(row.s + static_cast<float>(row.count - 1) * row.spacing,
                          section.view.strakes[i].length - 0.15F)
                    << test::Narrow(section.model.panels[i].name);
                EXPECT_GT(row.spacing, 0.5F);
                EXPECT_LT(row.spacing, 1.0F);
                EXPECT_GE(row.webHeight_mm, 150);
                count += row.count;
            }
        }
        EXPECT_GT(count, 40) << number;
    }
}

TEST(SampleSections, SeamsKeepClearOfStiffeners) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        const SampleShipSection section(number);
        for (const Panel& panel : section.model.panels) {
            for (size_t k = 0; k + 1 < panel.plates.size(); ++k) {
                for (const Stiffener& row : panel.stiffeners) {
                    for (int i = 0; i < row.count; ++i) {
                        const float s = row.s + static_cast<float>(i) * row.spacing;
                        EXPECT_GT(std::abs(panel.plates[k].end_m - s), 0.14F)
                            << number << ' ' << test::Narrow(panel.name);
                    }
                }
            }
        }
    }
}

TEST(SampleSections, SpansReachFromWebToWeb) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        const SampleShipSection section(number);
        for (const Panel& panel : section.model.panels) {
            for (const StiffenerDetail& detail : panel.stiffenerDetails) {
                ASSERT_EQ(detail.spans.size(), 1U);
                EXPECT_EQ(detail.spans[0].length_m, section.model.webSpacing_m);
                EXPECT_GT(detail.spans[0].material, 0);
            }
        }
    }
}

TEST(SampleSections, NoStiffenerStandsInACargoHold) {
    for (int32_t number = kFirstHold; number <= kLastHold; ++number) {
        const SampleShipSection section(number);
        const std::vector<Place> hold = section.Corners(L"Cargo hold");
        ASSERT_GE(hold.size(), 6U);
        for (const Panel& panel : section.model.panels) {
            for (const Stiffener& row : panel.stiffeners) {
                const float web = row.webHeight_mm / 1000;
                const Place middle{row.y + row.normalY * web / 2, row.z + row.normalZ * web / 2};
                EXPECT_FALSE(IsInside(hold, middle)) << number << ' ' << test::Narrow(panel.name);
            }
        }
    }
}

// ---- Compartments ------------------------------------------------------------------------------

TEST(SampleSections, OutlinesNameNodesThatExist) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        const SampleShipSection section(number);
        ASSERT_GE(section.model.compartments.size(), 2U);
        for (const Compartment& compartment : section.model.compartments) {
            ASSERT_GE(compartment.outline.size(), 4U) << test::Narrow(compartment.name);
            for (const NodeReference& node : compartment.outline) {
                EXPECT_TRUE(section.Exists(node)) << test::Narrow(compartment.name);
            }
        }
    }
}

// From a node to the next one an outline goes along one panel, or up the centre line.
TEST(SampleSections, OutlinesFollowThePlating) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        SampleShipSection section(number);
        for (const Compartment& compartment : section.model.compartments) {
            const std::vector<Place> corners = section.Corners(compartment.name);
            for (size_t i = 0; i < corners.size(); ++i) {
                const Place a = corners[i];
                const Place b = corners[(i + 1) % corners.size()];
                const bool onPlating =
                    std::any_of(section.view.strakes.begin(), section.view.strakes.end(),
                                [&](Strake& strake) { return IsOn(strake, a) && IsOn(strake, b); });
                EXPECT_TRUE(onPlating || (a.y == 0 && b.y == 0))
                    << number << ' ' << test::Narrow(compartment.name) << ", side " << i;
            }
        }
    }
}

// By hand, in slabs from the inner bottom upwards: hopper 5.45 m, side 6.8 m, topside slope 4.691
// m, hatchway 2.311 m, and the rise of the hatch cover.
TEST(SampleSections, MidshipHoldHasTheAreaOfItsSlabs) {
    const double slabs = (11.2 + 16.125) / 2 * 5.45 + 16.125 * 6.8 + (16.125 + 8) / 2 * 4.691 +
                         8 * 2.311 + 8 * 0.1 / 2;
    EXPECT_NEAR(Area(SampleShipSection(kMidship).Corners(L"Cargo hold")), slabs, 0.05);
}

TEST(SampleSections, CompartmentsHaveAnArea) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        const SampleShipSection section(number);
        for (const Compartment& compartment : section.model.compartments) {
            EXPECT_GT(std::abs(Area(section.Corners(compartment.name))), 1.5)
                << number << ' ' << test::Narrow(compartment.name);
        }
    }
}

TEST(SampleSections, FillingLevelsRise) {
    const SampleShipSection section(kMidship);
    for (const Compartment& compartment : section.model.compartments) {
        EXPECT_EQ(compartment.levels.empty(), compartment.designValues(1) == 0);
        for (size_t i = 1; i < compartment.levels.size(); ++i) {
            EXPECT_GT(compartment.levels[i].level_m, compartment.levels[i - 1].level_m);
        }
        for (const FillingLevel& level : compartment.levels) {
            EXPECT_GT(level.surfaceBreadth_m, 0);
            EXPECT_LE(level.surfaceBreadth_m, 16.125F);
        }
    }
}

// ---- The whole ---------------------------------------------------------------------------------

TEST(SampleSections, ModuliBelongToTheInertia) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        const SampleShipSection section(number);
        const SectionModel& model = section.model;
        EXPECT_EQ(model.resultsValid, -1);
        EXPECT_NEAR(model.inertiaY_m4 / (model.depth_m - model.neutralAxis_m), model.deckModulus_m3,
                    0.01);
        EXPECT_NEAR(model.inertiaY_m4 / model.neutralAxis_m, model.bottomModulus_m3, 0.01);
    }
}

TEST(SampleSections, AreWrittenAgainAsTheyStand) {
    const test::TemporaryFolder folder;
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        SectionModel model;
        const test::RecordingScreen screen;
        ASSERT_TRUE(ReadSectionBlock(SamplePath(), number, false, model));
        TextWriter writer;
        ASSERT_TRUE(CreateText(writer, folder.File(L"again.txt")));
        WriteSectionBody(writer, model);
        ASSERT_TRUE(CloseText(writer));
        EXPECT_EQ(test::ReadFileBytes(folder.File(L"again.txt")), test::SampleBody(number))
            << number;
    }
}

}  // namespace
}  // namespace corvane
