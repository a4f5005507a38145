#include "samples/ship_bulkheads.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "samples/bulkhead_draft.h"

namespace corvane::samples {
namespace {

// ---- The hull where the bulkhead stands --------------------------------------------------------

// Half breadth of a shell at a height.
float HalfBreadth(const HullForm& form, float z) {
    const BilgeForm bilge = BilgeOf(form);
    if (z >= bilge.end.z) return SideAt(form, std::min(z, form.depth)).y;
    if (z <= bilge.start.z) {
        const float rise = bilge.start.z;
        const float run = bilge.start.y - form.keelHalf;
        return rise > 0 ? form.keelHalf + run * z / rise : bilge.start.y;
    }
    const float down = bilge.centre.z - z;
    return bilge.centre.y + std::sqrt(form.bilgeRadius * form.bilgeRadius - down * down);
}

// Between two sections; `part` of the way from the aft one to the fore one.
struct HullBetween {
    HullForm aft, fore;
    float part;
};

float Mixed(float aft, float fore, float part) {
    return aft + part * (fore - aft);
}

float HalfBreadth(const HullBetween& hull, float z) {
    return Mixed(HalfBreadth(hull.aft, z), HalfBreadth(hull.fore, z), hull.part);
}

// Only what the deck wants of it.
HullForm DeckForm(const HullBetween& hull) {
    HullForm form = hull.fore;
    form.deckHalf = Mixed(hull.aft.deckHalf, hull.fore.deckHalf, hull.part);
    form.camber = Mixed(hull.aft.camber, hull.fore.camber, hull.part);
    return form;
}

// From the deck's edge to the centre line.
void AddDeck(Outline& outline, const HullForm& form) {
    constexpr int kPieces = 8;
    for (int i = 0; i <= kPieces; ++i) {
        outline.push_back(DeckAt(form, form.deckHalf * static_cast<float>(kPieces - i) / kPieces));
    }
}

// ---- Plane bulkheads right across the ship -----------------------------------------------------

struct PlanePlan {
    const wchar_t* name;
    HullBetween hull;
    float foot_m;  // z
    int32_t stiffenedSide;
    std::vector<float> girders_m;  // z of horizontal girders
    std::vector<float> webs_m;     // y of vertical ones
    SecondaryPlan stiffeners;
    StrakePlan strakes;
};

// Nodes up the shell, a metre apart where it is round.
constexpr float kRound_m = 7;
std::vector<Place> ShellPlaces(const PlanePlan& plan) {
    std::vector<Place> places;
    const float depth = plan.hull.aft.depth;
    for (float z = plan.foot_m; z < kRound_m; ++z) places.push_back({HalfBreadth(plan.hull, z), z});
    places.push_back({HalfBreadth(plan.hull, kRound_m), kRound_m});
    places.push_back({HalfBreadth(plan.hull, depth), depth});
    return places;
}

void Number(Bulkhead& bulkhead, int16_t first) {
    for (Node& node : bulkhead.nodes) node.number = first++;
}

Bulkhead PlaneBulkhead(const PlanePlan& plan) {
    Bulkhead bulkhead;
    bulkhead.name = plan.name;
    bulkhead.material = plan.strakes.material;
    bulkhead.stiffening = kVertical;
    bulkhead.stiffenedSide = plan.stiffenedSide;

    const HullForm deck = DeckForm(plan.hull);
    const std::vector<Place> shell = ShellPlaces(plan);
    bulkhead.nodes.push_back(At({0, plan.foot_m}));
    for (const Place& place : shell) bulkhead.nodes.push_back(At(place));
    bulkhead.nodes.back() = WithRadius(bulkhead.nodes.back(), CamberRadius(deck));
    bulkhead.nodes.push_back(At(DeckAt(deck, 0)));
    Number(bulkhead, 1);

    Outline outline = {{0, plan.foot_m}};
    outline.insert(outline.end(), shell.begin(), shell.end() - 1);
    AddDeck(outline, deck);
    for (const float z : plan.girders_m) AddPrimary(bulkhead, outline, kHorizontal, z);
    for (const float y : plan.webs_m) AddPrimary(bulkhead, outline, kVertical, y);
    AddSecondaries(bulkhead, outline, plan.stiffeners);
    LayStrakes(bulkhead, outline, plan.strakes);
    return bulkhead;
}

// ---- The corrugated bulkhead -------------------------------------------------------------------

constexpr float kLowerStoolFoot_m = 1.8F;  // half lengths along the ship
constexpr float kStoolHead_m = 0.65F;      // at the corrugations
constexpr float kUpperStoolHead_m = 1.4F;  // at the deck

struct HoldPlaces {
    Place margin, hopperTop, topsideFoot, topsideHead;  // of the hold's boundary, upwards
    Place stoolTop, upperStool;                         // of the stools on it
    Place hatchEdge;
};

HoldPlaces PlacesOf(const HoldPlan& plan) {
    HoldPlaces places;
    places.margin = {plan.margin_m, kInnerBottom_m};
    places.hopperTop = SideAt(plan.form, plan.hopperTop_m);
    places.topsideFoot = SideAt(plan.form, kTopsideFoot_m);
    places.topsideHead = TopsideHead(plan);
    places.hatchEdge = DeckAt(plan.form, plan.hatchSide_m);
    const auto along = [](Place from, Place to, float z) {
        return Place{Mixed(from.y, to.y, (z - from.z) / (to.z - from.z)), z};
    };
    places.stoolTop = along(places.margin, places.hopperTop, kStoolTop_m);
    places.upperStool = along(places.topsideFoot, places.topsideHead, kUpperStool_m);
    return places;
}

Bulkhead PlaneOf(const wchar_t* name, const Outline& outline, int16_t firstNumber) {
    Bulkhead bulkhead;
    bulkhead.name = name;
    bulkhead.material = kMild;
    bulkhead.stiffening = kVertical;
    for (const Place& corner : outline) bulkhead.nodes.push_back(At(corner));
    Number(bulkhead, firstNumber);
    return bulkhead;
}

Bulkhead Corrugations(const HoldPlaces& places, float x_m) {
    const Outline outline = {{0, kStoolTop_m},   places.stoolTop,   places.hopperTop,
                             places.topsideFoot, places.upperStool, {0, kUpperStool_m}};
    Bulkhead bulkhead = PlaneOf(L"Corrugated bulkhead, frame 136", outline, 1);
    bulkhead.kind = 1;
    bulkhead.material = kHigh;
    bulkhead.stools(1) = {-1, kStoolTop_m};
    bulkhead.stools(2) = {-1, kUpperStool_m};
    bulkhead.stoolEnds_m = {
        {Millimetres(x_m - kLowerStoolFoot_m), Millimetres(x_m + kLowerStoolFoot_m),
         Millimetres(x_m - kUpperStoolHead_m), Millimetres(x_m + kUpperStoolHead_m)}};
    bulkhead.corrugation = {0.55F, 2.2F, 1.1F, 0.95F, -1, -1};
    LayStrakes(bulkhead, outline, {{6.6F}, 2.5F, 19, 13.5F, kHigh});
    return bulkhead;
}

// The fore side has its nodes where the aft side has them.
Bulkhead StoolSide(const HoldPlaces& places, int16_t aftSide) {
    const Outline outline = {{0, kInnerBottom_m}, places.margin, places.stoolTop, {0, kStoolTop_m}};
    const bool fore = aftSide > 0;
    Bulkhead bulkhead =
        PlaneOf(fore ? L"Lower stool, fore side" : L"Lower stool, aft side", outline, 7);
    bulkhead.stiffenedSide = fore ? -1 : 1;
    bulkhead.material = kHigh;
    if (fore) {
        int16_t node = 0;
        for (Node& each : bulkhead.nodes) each = On({aftSide, ++node});
        Number(bulkhead, 11);
    }
    for (const float y : {kDuct_m, kDuct_m + kGirderPitch_m, kDuct_m + 2 * kGirderPitch_m}) {
        AddPrimary(bulkhead, outline, kVertical, Millimetres(y));
    }
    AddSecondaries(bulkhead, outline, {{kProfileAngle, 250, 11, 90, 15}, kHigh, 0.8F, 250});
    LayStrakes(bulkhead, outline, {{6.4F}, 1.4F, 19.5F, 18, kHigh});
    return bulkhead;
}

Bulkhead UpperStoolSide(const HoldPlaces& places, const HullForm& form) {
    const Outline outline = {{0, kUpperStool_m},
                             places.upperStool,
                             places.topsideHead,
                             places.hatchEdge,
                             DeckAt(form, 0)};
    Bulkhead bulkhead = PlaneOf(L"Upper stool, both sides", outline, 15);
    bulkhead.stiffenedSide = 1;
    AddPrimary(bulkhead, outline, kVertical, 4);
    AddSecondaries(bulkhead, outline, {{kProfileAngle, 200, 10, 90, 14}, kMild, 0.8F, 200});
    LayStrakes(bulkhead, outline, {{6.4F}, 1.6F, 13, 13, kMild});
    return bulkhead;
}

Bulkhead TopsideTankEnd(const HoldPlaces& places, const HullForm& form) {
    Outline outline = {
        places.topsideFoot, {form.deckHalf, form.depth}, places.hatchEdge, places.topsideHead};
    Bulkhead bulkhead = PlaneOf(L"Topside tank, frame 136", outline, 20);
    bulkhead.stiffening = kHorizontal;
    bulkhead.stiffenedSide = -1;
    AddPrimary(bulkhead, outline, kVertical, 12);
    AddSecondaries(bulkhead, outline, {{kProfileBulb, 240, 11, 41, 30}, kMild, 0.7F, 220});
    LayStrakes(bulkhead, outline, {{12}, 2, 14, 12, kMild});
    return bulkhead;
}

// ---- Holds -------------------------------------------------------------------------------------

struct HoldEnds {
    const wchar_t* name;
    HoldPlan plan;
    std::array<int16_t, 2> frames;
    float length_m;
    std::array<bool, 2> stools;  // aft, fore
    bool ballast;
};

float HoldBreadth(const HoldPlaces& places, const HullForm& form, float z) {
    const auto along = [z](Place from, Place to) {
        return Mixed(from.y, to.y, (z - from.z) / (to.z - from.z));
    };
    if (z < places.hopperTop.z) return along(places.margin, places.hopperTop);
    if (z < places.topsideFoot.z) return SideAt(form, z).y;
    if (z < places.topsideHead.z) return along(places.topsideFoot, places.topsideHead);
    return places.hatchEdge.y;
}

// From the side to the inner bottom, at the hopper's top.
float HopperBreadth(const HoldPlan& plan) {
    return Millimetres(SideAt(plan.form, plan.hopperTop_m).y - plan.margin_m);
}

// How far a stool reaches into the hold.
float StoolReach(float z) {
    if (z < kStoolTop_m) {
        const float part = (z - kInnerBottom_m) / (kStoolTop_m - kInnerBottom_m);
        return Mixed(kLowerStoolFoot_m, kStoolHead_m, part);
    }
    constexpr float kDeck_m = 19.9F;
    if (z > kUpperStool_m) {
        const float part = std::min(1.0F, (z - kUpperStool_m) / (kDeck_m - kUpperStool_m));
        return Mixed(kStoolHead_m, kUpperStoolHead_m, part);
    }
    return 0;
}

float HoldLength(const HoldEnds& hold, const HoldPlaces& places, float z) {
    constexpr float kCrossDecks_m = 6;  // the hatch is so much shorter than the hold
    if (z > places.topsideHead.z) return hold.length_m - kCrossDecks_m;
    float length = hold.length_m;
    for (const bool stool : hold.stools) length -= stool ? StoolReach(z) : 0;
    return length;
}

Compartment HoldOf(const HoldEnds& hold, int16_t number) {
    constexpr float kCoaming_m = 1.1F;
    constexpr int kLevels = 8;
    const HoldPlaces places = PlacesOf(hold.plan);
    Compartment compartment;
    compartment.name = hold.name;
    compartment.contents = kCargo;
    compartment.kind = kCargo;
    compartment.symmetric = 1;
    compartment.hold = number;
    compartment.designValues(1) = 1.78F;
    compartment.ends = {{hold.frames[0], hold.frames[1]}};
    compartment.ballastHold = hold.ballast ? -1 : 0;
    const float height = places.hatchEdge.z + kCoaming_m - kInnerBottom_m;
    for (int i = 1; i <= kLevels; ++i) {
        const float level = height * static_cast<float>(i) / kLevels;
        const float z = kInnerBottom_m + level;
        compartment.levels.push_back({Millimetres(level), Millimetres(HoldLength(hold, places, z)),
                                      Millimetres(HoldBreadth(places, hold.plan.form, z))});
    }
    return compartment;
}

// Both stools of one bulkhead, both sides of the ship.
float StoolVolume(const HoldPlan& plan) {
    constexpr float kSlice_m = 0.01F;
    const HoldPlaces places = PlacesOf(plan);
    double volume = 0;
    for (float z = kInnerBottom_m + kSlice_m / 2; z < places.hatchEdge.z; z += kSlice_m) {
        volume += 4.0 * StoolReach(z) * HoldBreadth(places, plan.form, z) * kSlice_m;
    }
    return static_cast<float>(std::round(volume));
}

// ---- The three of them -------------------------------------------------------------------------

void DraftEngineRoomBulkhead(BulkheadArrangement& arrangement) {
    const HoldPlan hold = PlanOfHold(2);
    arrangement.foreHopper = {HopperBreadth(hold), hold.hopperTop_m};
    arrangement.bulkheads = {PlaneBulkhead({L"Engine room bulkhead, frame 46",
                                            {kEngineRoomForm, hold.form, 0.5F},
                                            kInnerBottom_m,
                                            -1,
                                            {9, 14},
                                            {4.8F, 9.6F},
                                            {{kProfileTee, 320, 11, 125, 16}, kHigh, 0.8F, 250},
                                            {{7.2F}, 2.4F, 15, 11, kMild}})};
    arrangement.holds = {HoldOf({L"Hold 7", hold, {46, 76}, 24, {false, true}, false}, 7)};
}

void DraftCorrugatedBulkhead(BulkheadArrangement& arrangement) {
    const HoldPlan aft = PlanOfHold(4);
    const HoldPlan fore = PlanOfHold(5);
    const HoldPlaces places = PlacesOf(fore);
    arrangement.stoolVolume_m3 = StoolVolume(fore);
    arrangement.stateType = 1;
    arrangement.stateIndex = 1;
    arrangement.aftHopper = {HopperBreadth(aft), aft.hopperTop_m};
    arrangement.foreHopper = {HopperBreadth(fore), fore.hopperTop_m};
    constexpr int16_t kAftSide = 2;
    arrangement.bulkheads = {Corrugations(places, arrangement.x_m), StoolSide(places, 0),
                             StoolSide(places, kAftSide), UpperStoolSide(places, fore.form),
                             TopsideTankEnd(places, fore.form)};
    arrangement.holds = {HoldOf({L"Hold 5", aft, {106, 136}, 24, {true, true}, false}, 5),
                         HoldOf({L"Hold 4", fore, {136, 166}, 24, {true, true}, true}, 4)};
}

void DraftCollisionBulkhead(BulkheadArrangement& arrangement) {
    const HoldPlan hold = PlanOfHold(8);
    arrangement.aftHopper = {HopperBreadth(hold), hold.hopperTop_m};
    arrangement.bulkheads = {PlaneBulkhead({L"Collision bulkhead, frame 254",
                                            {hold.form, kForePeakForm, 11.2F / 20.8F},
                                            kInnerBottom_m,
                                            1,
                                            {5, 9, 13.8F},
                                            {3.2F},
                                            {{kProfileAngle, 280, 11, 90, 15}, kMild, 0.7F, 220},
                                            {{4.2F}, 2.4F, 14, 10.5F, kMild}})};
    arrangement.holds = {HoldOf({L"Hold 1", hold, {226, 254}, 22.4F, {true, false}, false}, 1)};
}

}  // namespace

void DraftArrangement(BulkheadArrangement& arrangement, int32_t number) {
    arrangement.symmetric = -1;
    switch (number) {
        case 10:
            DraftEngineRoomBulkhead(arrangement);
            break;
        case 11:
            DraftCorrugatedBulkhead(arrangement);
            break;
        default:
            DraftCollisionBulkhead(arrangement);
            break;
    }
}

}  // namespace corvane::samples
