// The bulkhead arrangements and torsion models of the sample ship: complete, inside its hull, and
// plausible to a naval architect.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "bsd/bsd_file.h"
#include "bsd/frames.h"
#include "database/bulkhead_file.h"
#include "database/database_file.h"
#include "tests/shell/sample_models.h"
#include "tests/support/support.h"
#include "text/numbers.h"

namespace corvane {
namespace {

using test::Place;
using test::SampleShipSection;

constexpr int32_t kFirst = 10;
constexpr int32_t kCorrugated = 11;
constexpr int32_t kLast = 12;
constexpr float kDepth_m = 19.6F;
constexpr float kCamber_m = 0.4F;
constexpr float kTolerance_m = 0.01F;

BulkheadArrangement Arrangement(int32_t number) {
    const test::RecordingScreen screen;
    BulkheadArrangement arrangement;
    EXPECT_TRUE(ReadBulkheadBlock(test::SamplePath(), number, arrangement)) << number;
    return arrangement;
}

template <class Check>
void ForEachBulkhead(Check check) {
    for (int32_t number = kFirst; number <= kLast; ++number) {
        const BulkheadArrangement arrangement = Arrangement(number);
        for (const Bulkhead& bulkhead : arrangement.bulkheads) {
            SCOPED_TRACE(test::Narrow(bulkhead.name));
            check(arrangement, bulkhead);
        }
    }
}

// ---- The hull ----------------------------------------------------------------------------------

// Half breadth of a computed section's shell.
float HalfBreadth(SampleShipSection& section, float z) {
    constexpr int kPieces = 200;
    float breadth = 0;
    for (size_t i = 0; i < section.model.panels.size(); ++i) {
        constexpr int16_t kSide = 3;
        if (section.model.panels[i].kind > kSide) continue;
        Strake& strake = section.view.strakes[i];
        Place before{};
        for (int k = 0; k <= kPieces; ++k) {
            Place place{};
            const float s = strake.length * static_cast<float>(k) / kPieces;
            SToYZ(&strake, s, &place.y, &place.z, 0.001F);
            if (k > 0 && std::min(before.z, place.z) <= z && z <= std::max(before.z, place.z)) {
                breadth = std::max({breadth, before.y, place.y});
            }
            before = place;
        }
    }
    return breadth;
}

// Between the two sections next to x, in a straight line.
struct Hull {
    std::unique_ptr<SampleShipSection> aft, fore;
    float part = 0;

    explicit Hull(float x_m) {
        for (int32_t number = 1; number < test::kSectionCount; ++number) {
            auto next = std::make_unique<SampleShipSection>(number + 1);
            if (number == 1) aft = std::make_unique<SampleShipSection>(1);
            if (next->model.x_m >= x_m) {
                part = (x_m - aft->model.x_m) / (next->model.x_m - aft->model.x_m);
                fore = std::move(next);
                return;
            }
            aft = std::move(next);
        }
    }
    float HalfBreadthAt(float z) const {
        const float held = std::min(z, kDepth_m);
        const float atAft = HalfBreadth(*aft, held);
        return atAft + part * (HalfBreadth(*fore, held) - atAft);
    }
    void ExpectInside(Place place) const {
        EXPECT_GE(place.y, 0);
        EXPECT_GE(place.z, 0);
        EXPECT_LE(place.z, kDepth_m + kCamber_m + kTolerance_m);
        EXPECT_LE(place.y, HalfBreadthAt(place.z) + kTolerance_m) << "at z " << place.z;
    }
};

Place PlaceOf(const BulkheadArrangement& arrangement, const Node& node) {
    if (node.kind == kNodeGiven) return {node.givenY, node.givenZ};
    EXPECT_EQ(node.kind, kNodeCoincident);
    return PlaceOf(arrangement, arrangement.bulkheads.at(static_cast<size_t>(node.onStrake - 1))
                                    .nodes.at(static_cast<size_t>(node.onNode - 1)));
}

struct Heights {
    float from = 1000;
    float to = -1000;
};
Heights HeightsOf(const BulkheadArrangement& arrangement, const Bulkhead& bulkhead) {
    Heights heights;
    for (const Node& node : bulkhead.nodes) {
        const float z = PlaceOf(arrangement, node).z;
        heights = {std::min(heights.from, z), std::max(heights.to, z)};
    }
    return heights;
}

std::vector<Place> CornersOf(const BulkheadArrangement& arrangement, const Bulkhead& bulkhead) {
    std::vector<Place> corners;
    for (const Node& node : bulkhead.nodes) corners.push_back(PlaceOf(arrangement, node));
    return corners;
}

TEST(SampleBulkheads, NodesLieInsideTheHull) {
    for (int32_t number = kFirst; number <= kLast; ++number) {
        const BulkheadArrangement arrangement = Arrangement(number);
        const Hull hull(arrangement.x_m);
        for (const Bulkhead& bulkhead : arrangement.bulkheads) {
            SCOPED_TRACE(test::Narrow(bulkhead.name));
            EXPECT_GE(bulkhead.nodes.size(), 4U);
            for (const Node& node : bulkhead.nodes) hull.ExpectInside(PlaceOf(arrangement, node));
            EXPECT_GT(std::abs(test::Area(CornersOf(arrangement, bulkhead))), 15);
        }
    }
}

TEST(SampleBulkheads, PlaneOnesReachTheShell) {
    for (const int32_t number : {kFirst, kLast}) {
        const BulkheadArrangement arrangement = Arrangement(number);
        ASSERT_EQ(arrangement.bulkheads.size(), 1U);
        EXPECT_EQ(arrangement.bulkheads[0].kind, 0);
        const Hull hull(arrangement.x_m);
        int onShell = 0;
        for (const Node& node : arrangement.bulkheads[0].nodes) {
            const Place place = PlaceOf(arrangement, node);
            // The fore peak flares out above the straight side; the bulkhead keeps clear of it.
            if (place.y == 0 || place.z > 8) continue;
            EXPECT_NEAR(place.y, hull.HalfBreadthAt(place.z), 0.1) << place.z;
            ++onShell;
        }
        EXPECT_GE(onShell, 7) << number;
    }
}

TEST(SampleBulkheads, StiffenersLieInsideTheHull) {
    for (int32_t number = kFirst; number <= kLast; ++number) {
        const BulkheadArrangement arrangement = Arrangement(number);
        const Hull hull(arrangement.x_m);
        const auto expectInside = [&hull](bool vertical, float position, float lower, float upper) {
            EXPECT_LT(lower + 0.5F, upper);
            hull.ExpectInside(vertical ? Place{position, lower} : Place{lower, position});
            hull.ExpectInside(vertical ? Place{position, upper} : Place{upper, position});
        };
        for (const Bulkhead& bulkhead : arrangement.bulkheads) {
            SCOPED_TRACE(test::Narrow(bulkhead.name));
            for (const PrimaryStiffener& primary : bulkhead.primaryStiffeners) {
                EXPECT_TRUE(primary.hasExtremities);
                expectInside(primary.direction == 1, primary.position_m, primary.lowerExtremity_m,
                             primary.upperExtremity_m);
            }
            for (const SecondaryStiffener& stiffener : bulkhead.secondaryStiffeners) {
                expectInside(bulkhead.stiffening == 1, stiffener.position_m,
                             stiffener.lowerExtremity_m, stiffener.upperExtremity_m);
            }
        }
    }
}

// ---- Stiffeners --------------------------------------------------------------------------------

TEST(SampleBulkheads, PlaneOnesAreStiffenedAllOverAndCorrugatedOnesAreNot) {
    ForEachBulkhead([](const BulkheadArrangement&, const Bulkhead& bulkhead) {
        const auto& stiffeners = bulkhead.secondaryStiffeners;
        EXPECT_EQ(stiffeners.empty(), bulkhead.kind == 1);
        EXPECT_EQ(bulkhead.primaryStiffeners.empty(), bulkhead.kind == 1);
        for (size_t i = 1; i < stiffeners.size(); ++i) {
            const float gap = stiffeners[i].position_m - stiffeners[i - 1].position_m;
            EXPECT_GT(gap, 0.5F);
            EXPECT_LT(gap, 1.7F) << "a primary one may stand between";
        }
    });
}

TEST(SampleBulkheads, GirdersDivideStiffenersIntoTheirSpans) {
    int ofSeveral = 0;
    ForEachBulkhead([&](const BulkheadArrangement&, const Bulkhead& bulkhead) {
        for (const SecondaryStiffener& stiffener : bulkhead.secondaryStiffeners) {
            int spans = 1;
            for (const PrimaryStiffener& primary : bulkhead.primaryStiffeners) {
                if (primary.direction != bulkhead.stiffening &&
                    primary.position_m > stiffener.lowerExtremity_m &&
                    primary.position_m < stiffener.upperExtremity_m &&
                    primary.upperExtremity_m > stiffener.position_m &&
                    primary.lowerExtremity_m < stiffener.position_m) {
                    ++spans;
                }
            }
            EXPECT_EQ(stiffener.spanCount, spans) << stiffener.position_m;
            ofSeveral += spans > 1 ? 1 : 0;
            for (const auto& [number, span] : stiffener.spans) {
                EXPECT_LE(number, spans);
                EXPECT_LE(span.lowerBracketLength_m + span.upperBracketLength_m, 1);
                if (span.hasScantlings) {
                    EXPECT_LE(span.scantlings.webHeight_mm, stiffener.scantlings.webHeight_mm);
                }
            }
        }
    });
    EXPECT_GT(ofSeveral, 30);
}

TEST(SampleBulkheads, BracketsAreShorterThanWhatTheyHold) {
    int enabled = 0;
    ForEachBulkhead([&](const BulkheadArrangement&, const Bulkhead& bulkhead) {
        for (const SecondaryStiffener& stiffener : bulkhead.secondaryStiffeners) {
            float arms = 0;
            for (const EndBracket& bracket : stiffener.brackets.elements) {
                if (bracket.enabled == 0) continue;
                ++enabled;
                EXPECT_GT(bracket.length_m, 0.2F);
                EXPECT_GT(bracket.scantlings.webHeight_mm, 100);
                arms += bracket.length_m;
            }
            EXPECT_LT(arms, stiffener.upperExtremity_m - stiffener.lowerExtremity_m);
        }
    });
    EXPECT_GT(enabled, 100);
}

// ---- Plates ------------------------------------------------------------------------------------

TEST(SampleBulkheads, StrakesCoverTheHeight) {
    ForEachBulkhead([](const BulkheadArrangement& arrangement, const Bulkhead& bulkhead) {
        const Heights heights = HeightsOf(arrangement, bulkhead);
        float lower = heights.from;
        int16_t expected = 0;
        for (const auto& [number, band] : bulkhead.bands) {
            EXPECT_EQ(number, ++expected);
            ASSERT_FALSE(band.empty());
            for (const BulkheadStrake& strake : band) EXPECT_EQ(strake.z_m, band.front().z_m);
            EXPECT_GT(band.front().z_m - lower, 0.9F);
            EXPECT_LT(band.front().z_m - lower, 2.6F);
            lower = band.front().z_m;
        }
        EXPECT_NEAR(lower, heights.to, 0.002);
    });
}

TEST(SampleBulkheads, StrakesCoverTheBreadthInsideTheHull) {
    for (int32_t number = kFirst; number <= kLast; ++number) {
        const BulkheadArrangement arrangement = Arrangement(number);
        const Hull hull(arrangement.x_m);
        for (const Bulkhead& bulkhead : arrangement.bulkheads) {
            SCOPED_TRACE(test::Narrow(bulkhead.name));
            float breadth = 0;
            for (const Place& corner : CornersOf(arrangement, bulkhead)) {
                breadth = std::max(breadth, corner.y);
            }
            float widest = 0;
            for (const auto& [band, strakes] : bulkhead.bands) {
                float inner = 0;
                for (const BulkheadStrake& strake : strakes) {
                    EXPECT_GT(strake.y_m, inner + 0.09F) << band;
                    inner = strake.y_m;
                }
                // The highest bands reach out to the edge of the cambered deck, or hang below a
                // sloping plate: they are broadest somewhere in their height.
                float shell = 0;
                for (float down = 0; down < 2.6F; down += 0.1F) {
                    shell = std::max(shell, hull.HalfBreadthAt(strakes.front().z_m - down));
                }
                EXPECT_LE(inner, shell + kTolerance_m) << band;
                widest = std::max(widest, inner);
            }
            EXPECT_NEAR(widest, breadth, 0.3);
        }
    }
}

TEST(SampleBulkheads, PlatesGetNoThickerUpwards) {
    ForEachBulkhead([](const BulkheadArrangement&, const Bulkhead& bulkhead) {
        float below = 20;
        for (const auto& [number, band] : bulkhead.bands) {
            for (const BulkheadStrake& strake : band) {
                EXPECT_GE(strake.thickness_mm, 10);
                EXPECT_LE(strake.thickness_mm, below);
                EXPECT_EQ(strake.material, bulkhead.material);
            }
            below = band.front().thickness_mm;
        }
    });
}

// ---- The corrugated bulkhead -------------------------------------------------------------------

TEST(SampleBulkheads, CorrugatedOneStandsBetweenItsStools) {
    const BulkheadArrangement arrangement = Arrangement(kCorrugated);
    ASSERT_EQ(arrangement.bulkheads.size(), 5U);
    const Bulkhead& corrugated = arrangement.bulkheads[0];
    EXPECT_EQ(corrugated.kind, 1);
    EXPECT_NE(corrugated.stools(1).enabled, 0);
    EXPECT_NE(corrugated.stools(2).enabled, 0);
    const Heights plating = HeightsOf(arrangement, corrugated);
    EXPECT_FLOAT_EQ(plating.from, corrugated.stools(1).z_m);
    EXPECT_FLOAT_EQ(plating.to, corrugated.stools(2).z_m);
    for (const size_t side : {1, 2}) {
        const Heights stool = HeightsOf(arrangement, arrangement.bulkheads[side]);
        EXPECT_FLOAT_EQ(stool.from, 1.75F) << "the inner bottom";
        EXPECT_FLOAT_EQ(stool.to, corrugated.stools(1).z_m);
    }
    EXPECT_FLOAT_EQ(HeightsOf(arrangement, arrangement.bulkheads[3]).from,
                    corrugated.stools(2).z_m);
    EXPECT_FLOAT_EQ(HeightsOf(arrangement, arrangement.bulkheads[3]).to, kDepth_m + kCamber_m);
}

TEST(SampleBulkheads, StoolsStandOnBothSidesOfTheFrameAndHoldTheCorrugations) {
    const BulkheadArrangement arrangement = Arrangement(kCorrugated);
    const Bulkhead& corrugated = arrangement.bulkheads[0];
    const auto& ends = corrugated.stoolEnds_m;
    EXPECT_NEAR((ends(1) + ends(2)) / 2, arrangement.x_m, 0.001);
    EXPECT_NEAR((ends(3) + ends(4)) / 2, arrangement.x_m, 0.001);
    const Corrugation& corrugation = corrugated.corrugation;
    EXPECT_LT(corrugation.depth_m, ends(4) - ends(3));
    EXPECT_LT(corrugation.depth_m, ends(2) - ends(1));
    EXPECT_EQ(corrugation.pitch_m, 2 * corrugation.flange_m);
    EXPECT_GT(arrangement.stoolVolume_m3, 200);
    EXPECT_LT(arrangement.stoolVolume_m3, 400);
}

// The sections of the holds have the same stools, hoppers and topside tanks.
TEST(SampleBulkheads, CorrugatedOneFitsTheSections) {
    const BulkheadArrangement arrangement = Arrangement(kCorrugated);
    const SampleShipSection divided(7);
    const Bulkhead& corrugated = arrangement.bulkheads[0];
    EXPECT_FLOAT_EQ(divided.At({divided.Panel(L"Lower stool top"), 1}).z, corrugated.stools(1).z_m);
    EXPECT_FLOAT_EQ(divided.At({divided.Panel(L"Upper stool bottom"), 1}).z,
                    corrugated.stools(2).z_m);
    const SampleShipSection midship(5);
    const Place hopper = midship.At({midship.Panel(L"Hopper"), 2});
    const Place margin = midship.At({midship.Panel(L"Hopper"), 1});
    for (const Hopper& each : {arrangement.aftHopper, arrangement.foreHopper}) {
        EXPECT_NEAR(each.top_m, hopper.z, 0.001);
        EXPECT_NEAR(each.breadth_m, hopper.y - margin.y, 0.001);
    }
    const Place slope = midship.At({midship.Panel(L"Topside slope"), 2});
    EXPECT_NEAR(HeightsOf(arrangement, arrangement.bulkheads[4]).from, slope.z, 0.001);
}

// ---- Holds -------------------------------------------------------------------------------------

// Both sides of the ship, from the inner bottom to the last level, slab by slab; `bottom_m2` is the
// area of the inner bottom.
double VolumeOf(const Compartment& hold, double bottom_m2) {
    double volume = 0;
    double level = 0;
    double area = bottom_m2;
    for (const FillingLevel& each : hold.levels) {
        const double next = 2.0 * each.surfaceBreadth_m * each.surfaceLength_m;
        volume += (area + next) / 2 * (each.level_m - level);
        level = each.level_m;
        area = next;
    }
    return volume;
}

TEST(SampleBulkheads, HoldsReachFromFrameToFrame) {
    BasicShipData bsd;
    {
        const test::RecordingScreen screen;
        ASSERT_TRUE(LoadBsdFromDatabase(test::SamplePath(), bsd));
    }
    for (int32_t number = kFirst; number <= kLast; ++number) {
        const BulkheadArrangement arrangement = Arrangement(number);
        ASSERT_FALSE(arrangement.holds.empty());
        for (const Compartment& hold : arrangement.holds) {
            const double aft = FrameX(bsd, hold.ends(1));
            const double fore = FrameX(bsd, hold.ends(2));
            EXPECT_TRUE(std::abs(aft - arrangement.x_m) < 0.01 ||
                        std::abs(fore - arrangement.x_m) < 0.01)
                << test::Narrow(hold.name);
            for (const FillingLevel& level : hold.levels) {
                EXPECT_LE(level.surfaceLength_m, fore - aft + 0.001);
                EXPECT_GT(level.surfaceLength_m, 0.6 * (fore - aft));
                EXPECT_LE(level.surfaceBreadth_m, 16.125F);
            }
        }
    }
}

// The section through the hold, over the hold's length, less what stools and cross decks take.
TEST(SampleBulkheads, VolumesOfHoldsBelongToTheirSections) {
    for (int32_t number = kFirst; number <= kLast; ++number) {
        const BulkheadArrangement arrangement = Arrangement(number);
        for (const Compartment& hold : arrangement.holds) {
            const SampleShipSection section(9 - hold.hold);
            const Place margin = section.At({section.Panel(L"Inner bottom"), 2});
            ASSERT_EQ(hold.levels.size(), 8U);
            const float length = hold.hold == 1 ? 22.4F : 24;
            const double volume = VolumeOf(hold, 2.0 * margin.y * length);
            const double whole = 2 * std::abs(test::Area(section.Corners(L"Cargo hold"))) * length;
            EXPECT_LT(volume, whole) << test::Narrow(hold.name);
            EXPECT_GT(volume, 0.9 * whole) << test::Narrow(hold.name);
            EXPECT_GT(volume, 8000) << test::Narrow(hold.name);
        }
    }
}

TEST(SampleBulkheads, HoldFourTakesBallast) {
    const BulkheadArrangement arrangement = Arrangement(kCorrugated);
    ASSERT_EQ(arrangement.holds.size(), 2U);
    EXPECT_EQ(arrangement.holds[0].name, L"Hold 5");
    EXPECT_EQ(arrangement.holds[0].ballastHold, 0);
    EXPECT_EQ(arrangement.holds[1].name, L"Hold 4");
    EXPECT_EQ(arrangement.holds[1].ballastHold, -1);
}

TEST(SampleBulkheads, AreWrittenAgainAsTheyStand) {
    const test::TemporaryFolder folder;
    for (int32_t number = kFirst; number <= kLast; ++number) {
        BulkheadArrangement arrangement = Arrangement(number);
        TextWriter writer;
        ASSERT_TRUE(CreateText(writer, folder.File(L"again.txt")));
        WriteBulkheadBody(writer, arrangement);
        ASSERT_TRUE(CloseText(writer));
        EXPECT_EQ(test::ReadFileBytes(folder.File(L"again.txt")), test::SampleBody(number));
    }
}

// ---- Torsion models ----------------------------------------------------------------------------

constexpr const char* kTorsionTables[] = {"HOLDS", "TRANS BEAM", "BEAM MODELS", "LONG BEAM",
                                          "TOR RESULTS"};

// The rows of each table of a torsion model's body.
std::vector<std::vector<std::vector<double>>> TorsionTables(int32_t number) {
    std::vector<std::vector<std::vector<double>>> tables;
    const test::TemporaryFolder folder;
    test::WriteFileBytes(folder.File(L"body.txt"), test::SampleBody(number));
    TextReader reader;
    EXPECT_TRUE(OpenText(reader, folder.File(L"body.txt")));
    std::string_view line;
    ReadSignificantLine(reader, line);  // name
    ReadSignificantLine(reader, line);  // position
    while (ReadSignificantLine(reader, line)) {
        if (IsHeaderLine(line)) {
            EXPECT_LT(tables.size(), std::size(kTorsionTables));
            const std::string label = kTorsionTables[tables.size()];
            EXPECT_EQ(line, "------------------ " + label + " ------------------");
            tables.emplace_back();
            continue;
        }
        ValueRow row;
        ParseValues(line, row);
        if (tables.empty()) return tables;
        std::vector<double>& values = tables.back().emplace_back();
        for (int i = 1; i <= row.count; ++i) values.push_back(row.values(i));
    }
    return tables;
}

TEST(SampleTorsion, BodiesHaveTheFiveTables) {
    const struct {
        int32_t number;
        size_t holds;
    } models[] = {{13, 7}, {14, 3}};
    for (const auto& [number, holds] : models) {
        const auto tables = TorsionTables(number);
        ASSERT_EQ(tables.size(), 5U) << number;
        EXPECT_EQ(tables[0].size(), holds);
        EXPECT_EQ(tables[1].size(), holds - 1);
        EXPECT_EQ(tables[2].size(), holds);
        EXPECT_EQ(tables[3].size(), holds);
        EXPECT_EQ(tables[4].size(), holds + 1);
    }
}

TEST(SampleTorsion, HoldsAndBeamsFollowEachOther) {
    for (const int32_t number : {13, 14}) {
        const auto tables = TorsionTables(number);
        ASSERT_EQ(tables.size(), 5U);
        for (size_t i = 0; i < tables[0].size(); ++i) {
            const std::vector<double>& hold = tables[0][i];
            const std::vector<double>& beam = tables[3][i];
            ASSERT_EQ(hold.size(), 6U);
            ASSERT_EQ(beam.size(), 4U);
            EXPECT_LT(hold[1], hold[3]);
            EXPECT_LT(hold[4], hold[2]);
            EXPECT_EQ(beam[1], hold[1]);
            EXPECT_EQ(beam[2], hold[2]);
            EXPECT_EQ(beam[3], static_cast<double>(i + 1));
            if (i == 0) continue;
            EXPECT_EQ(hold[1], tables[0][i - 1][2]);
            EXPECT_EQ(tables[1][i - 1][1], hold[1]) << "the cross deck between";
        }
    }
}

TEST(SampleTorsion, BeamsHaveTheAreasAndInertiasOfTheirSections) {
    const auto tables = TorsionTables(13);
    ASSERT_EQ(tables.size(), 5U);
    for (const std::vector<double>& beam : tables[2]) {
        ASSERT_EQ(beam.size(), 7U);
        const SampleShipSection section(static_cast<int32_t>(beam[1]));
        EXPECT_NEAR(beam[2], section.model.x_m, 1e-3);
        EXPECT_NEAR(beam[3], section.model.area_m2, 1e-3);
        EXPECT_NEAR(beam[4], section.model.inertiaY_m4, 1e-2);
        EXPECT_NEAR(beam[5], section.model.inertiaZ_m4, 1e-2);
        // Of four tanks; a closed hull of this size would have some hundreds.
        EXPECT_GT(beam[6], 3);
        EXPECT_LT(beam[6], 15);
    }
}

// G of steel, the torque in a straight line between its values at the ends: nearly the same twist.
TEST(SampleTorsion, TwistBelongsToTorqueAndStiffness) {
    for (const int32_t number : {13, 14}) {
        const auto tables = TorsionTables(number);
        ASSERT_EQ(tables.size(), 5U);
        const auto& results = tables[4];
        EXPECT_EQ(results[0][2], 0);
        for (size_t i = 1; i < results.size(); ++i) {
            const double length = results[i][0] - results[i - 1][0];
            const double torque = (results[i][1] + results[i - 1][1]) / 2;
            const double twist = torque * length / (79.3e6 * tables[2][i - 1][6]) * 57.29578;
            EXPECT_NEAR(results[i][2] - results[i - 1][2], twist, 0.08 * twist + 2e-4);
        }
    }
}

}  // namespace
}  // namespace corvane
