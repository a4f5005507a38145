#include "samples/torsion_models.h"

#include <cmath>
#include <numbers>
#include <string_view>

#include "database/rows.h"
#include "database/tables.h"

namespace corvane::samples {
namespace {

constexpr float kFirstBulkhead_m = 32.7F;  // aft end of hold 7
constexpr float kHold_m = 24;
constexpr float kLastBulkhead_m = 199.1F;
constexpr float kLength_m = 217;
constexpr float kHatch_m = 18;
constexpr float kCrossDeck_mm = 14;

// Wave torque: none at the ends of the ship, its largest amidships.
constexpr double kTorque_kNm = 60000;
constexpr double kShearModulus_kNm2 = 79.3e6;

constexpr int32_t kHolds = 7;

float AftEnd(int32_t hold) {
    return std::round((kFirstBulkhead_m + static_cast<float>(kHolds - hold) * kHold_m) * 10) / 10;
}
float ForeEnd(int32_t hold) {
    return hold == 1 ? kLastBulkhead_m : AftEnd(hold - 1);
}
int32_t SectionOf(int32_t hold) {
    return 9 - hold;
}

double Torque(double x) {
    return kTorque_kNm * (1 - std::cos(2 * std::numbers::pi * x / kLength_m)) / 2;
}

// ---- Torsion constant --------------------------------------------------------------------------

struct Cell {
    double area = 0;
    double perimeter = 0;
};
Cell CellOf(const SectionDraft& draft, const Compartment& compartment) {
    Cell cell;
    Place before = PlaceOf(draft, compartment.outline.back());
    for (const NodeReference& node : compartment.outline) {
        const Place place = PlaceOf(draft, node);
        cell.area += (double{before.y} * place.z - double{place.y} * before.z) / 2;
        cell.perimeter += std::hypot(place.y - before.y, place.z - before.z);
        before = place;
    }
    cell.area = std::abs(cell.area);
    return cell;
}

// Of the tanks on both sides, as closed cells with walls of one thickness; the open hold between
// them has next to nothing.
float TorsionConstant_m4(const SectionDraft& draft) {
    constexpr double kWall_m = 0.016;
    double constant = 0;
    for (const Compartment& compartment : draft.model.compartments) {
        if (compartment.contents != kBallast) continue;
        const Cell cell = CellOf(draft, compartment);
        constant += 2 * 4 * cell.area * cell.area * kWall_m / cell.perimeter;
    }
    return static_cast<float>(std::round(constant * 1000) / 1000);
}

// ---- Tables ------------------------------------------------------------------------------------

void OpenTorsionTable(RowWriter& row, std::string_view label, std::string_view legend) {
    WriteLine(row.writer, label);
    Legend(row, legend);
}

template <class... Fields>
void WriteRow(RowWriter& row, Fields... fields) {
    Values(row, fields...);
    EndLine(row);
}

// Goes over the holds from aft to fore.
template <class Action>
void ForEachHold(const TorsionPlan& plan, Action action) {
    for (int32_t hold = plan.aftHold; hold >= plan.foreHold; --hold) action(hold);
}

void WriteHoldTable(RowWriter& row, const TorsionPlan& plan) {
    OpenTorsionTable(row, "------------------ HOLDS ------------------",
                     " Hold\tAft x\tFore x\tHatch aft x\tHatch fore x\tHatch side y");
    ForEachHold(plan, [&row](int32_t hold) {
        const float aft = AftEnd(hold);
        const float fore = ForeEnd(hold);
        const float deck = (fore - aft - kHatch_m) / 2;
        WriteRow(row, hold, aft, fore, aft + deck, fore - deck,
                 PlanOfHold(SectionOf(hold)).hatchSide_m);
    });
}

// The cross decks between two hatches, as beams from hatch side to hatch side.
void WriteTransBeams(RowWriter& row, const TorsionPlan& plan) {
    OpenTorsionTable(row, "------------------ TRANS BEAM ------------------",
                     " Beam\tx\tSpan\tBreadth\tThickness\tArea\tInertia");
    int32_t beam = 0;
    for (int32_t hold = plan.aftHold; hold > plan.foreHold; --hold) {
        const float breadth = kHold_m - kHatch_m;
        const float area = breadth * kCrossDeck_mm / 1000;
        WriteRow(row, ++beam, ForeEnd(hold), 2 * PlanOfHold(SectionOf(hold)).hatchSide_m, breadth,
                 kCrossDeck_mm, area, area * breadth * breadth / 12);
    }
}

void WriteBeamModels(RowWriter& row, const TorsionPlan& plan,
                     const std::vector<SectionDraft>& sections) {
    OpenTorsionTable(row, "------------------ BEAM MODELS ------------------",
                     " Model\tSection\tx\tArea\tInertia y\tInertia z\tTorsion constant");
    int32_t number = 0;
    ForEachHold(plan, [&](int32_t hold) {
        const int32_t section = SectionOf(hold);
        const SectionDraft& draft = sections[static_cast<size_t>(section - 1)];
        WriteRow(row, ++number, section, draft.model.x_m, draft.model.area_m2,
                 draft.model.inertiaY_m4, draft.model.inertiaZ_m4, TorsionConstant_m4(draft));
    });
}

void WriteLongBeams(RowWriter& row, const TorsionPlan& plan) {
    OpenTorsionTable(row, "------------------ LONG BEAM ------------------",
                     " Beam\tAft x\tFore x\tModel");
    int32_t number = 0;
    ForEachHold(plan, [&](int32_t hold) {
        ++number;
        WriteRow(row, number, AftEnd(hold), ForeEnd(hold), number);
    });
}

// The twist of each beam over the ones aft of it, by Saint-Venant's torsion alone.
void WriteResults(RowWriter& row, const TorsionPlan& plan,
                  const std::vector<SectionDraft>& sections) {
    OpenTorsionTable(row, "------------------ TOR RESULTS ------------------",
                     " x\tTorque\tTwist in degrees");
    constexpr int kSlices = 100;
    const auto write = [&row](float x, double twist) {
        WriteRow(row, x, static_cast<float>(std::round(Torque(x))),
                 static_cast<float>(std::round(twist * 180 / std::numbers::pi * 1e4) / 1e4));
    };
    double twist = 0;
    write(AftEnd(plan.aftHold), twist);
    ForEachHold(plan, [&](int32_t hold) {
        const double constant =
            TorsionConstant_m4(sections[static_cast<size_t>(SectionOf(hold) - 1)]);
        const double slice = (ForeEnd(hold) - AftEnd(hold)) / double{kSlices};
        for (int i = 0; i < kSlices; ++i) {
            const double x = AftEnd(hold) + (i + 0.5) * slice;
            twist += Torque(x) * slice / (kShearModulus_kNm2 * constant);
        }
        write(ForeEnd(hold), twist);
    });
}

}  // namespace

void WriteTorsionBody(TextWriter& writer, const TorsionPlan& plan,
                      const std::vector<SectionDraft>& sections) {
    RowWriter row(writer);
    TextLine(row, plan.name);
    const float aft = AftEnd(plan.aftHold);
    const float fore = ForeEnd(plan.foreHold);
    WriteRow(row, (aft + fore) / 2, aft, fore);
    WriteHoldTable(row, plan);
    WriteTransBeams(row, plan);
    WriteBeamModels(row, plan, sections);
    WriteLongBeams(row, plan);
    WriteResults(row, plan, sections);
}

}  // namespace corvane::samples
