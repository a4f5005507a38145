// Sections of the ship's ends: engine room and fore peak.
#include <cmath>

#include "samples/ship_sections.h"

namespace corvane::samples {
namespace {

// ---- Engine room -------------------------------------------------------------------------------

constexpr float kTankTop_m = 2.2F;
constexpr float kCasing_m = 3.6F;    // y
constexpr float kTankSide_m = 9.6F;  // y of the bulkhead of the wing tank
constexpr float kLowerFlat_m = 9;    // z
constexpr float kUpperFlat_m = 14;   // z
constexpr float kSpacing_m = 0.7F;

struct EngineRoom {
    SectionDraft& draft;
    BottomPanels bottom{};
    TopPanels top{};
    int16_t inner = 0;
    std::vector<int16_t> girders{};
    int16_t lower = 0, upper = 0, tankSide = 0, casing = 0;
};

// The bilge gets a node where the inner bottom meets it.
void SplitBilge(EngineRoom& room) {
    const HullForm& form = kEngineRoomForm;
    const Place centre = BilgeOf(form).centre;
    const float up = centre.z - kTankTop_m;
    const Place middle{centre.y + std::sqrt(form.bilgeRadius * form.bilgeRadius - up * up),
                       kTankTop_m};
    std::vector<Node>& nodes =
        room.draft.model.panels[static_cast<size_t>(room.bottom.bilge - 1)].nodes;
    const int16_t bottom = room.bottom.bottom;
    nodes = {WithRadius(On({bottom, 2}), form.bilgeRadius),
             WithRadius(At(middle), form.bilgeRadius), nodes[1]};
    int16_t number = 0;
    for (Node& node : nodes) node.number = ++number;
}

void AddTankTop(EngineRoom& room) {
    SectionDraft& draft = room.draft;
    room.inner = AddPanel(draft, L"Inner bottom", kInnerBottom,
                          {At({0, kTankTop_m}), On({room.bottom.bilge, 2})});
    const Node centre = On({room.bottom.keel, 1});
    room.girders.push_back(
        AddPanel(draft, L"Centre girder", kGirder, {centre, On({room.inner, 1})}));
    struct Girder {
        const wchar_t* name;
        float y;
    };
    for (const Girder& girder : {Girder{L"Engine girder 1.8", 1.8F},
                                 {L"Girder 3.6", 3.6F},
                                 {L"Girder 5.4", 5.4F},
                                 {L"Margin girder 7.2", 7.2F}}) {
        room.girders.push_back(AddPanel(draft, girder.name, kGirder,
                                        {AtBreadth(room.bottom.bottom, {girder.y, 0}),
                                         AtBreadth(room.inner, {girder.y, kTankTop_m})}));
    }
}

void AddFlats(EngineRoom& room) {
    SectionDraft& draft = room.draft;
    const int16_t side = room.top.side;
    const HullForm& form = kEngineRoomForm;
    room.lower = AddPanel(draft, L"Platform 9.0", kPlatform,
                          {AtHeight(side, SideAt(form, kLowerFlat_m)), At({5, kLowerFlat_m})});
    room.upper = AddPanel(draft, L"Platform 14.0", kPlatform,
                          {AtHeight(side, SideAt(form, kUpperFlat_m)), At({4.2F, kUpperFlat_m})});
    room.tankSide = AddPanel(draft, L"Fuel tank bulkhead", kLongitudinalBulkhead,
                             {AtBreadth(room.lower, {kTankSide_m, kLowerFlat_m}),
                              AtBreadth(room.upper, {kTankSide_m, kUpperFlat_m})});
    const NodeReference edge{room.top.deck, 2};
    room.casing = AddPanel(draft, L"Casing", kHatch, {On(edge), OffsetFrom(edge, 0, 1.1F)});
}

void StiffenTankTop(EngineRoom& room) {
    SectionDraft& draft = room.draft;
    const int16_t bottom = room.bottom.bottom;
    // In line with those of the inner bottom, clear of the seam of the keel plate.
    const StiffenerPlan first = Tee(280, kLeft, 0.6F);
    AddRowFrom(draft, room.bottom.keel, {{room.bottom.keel, 1}, 0.6F, 1}, first);
    AddRowFrom(draft, bottom, {{bottom, 1}, 0.3F, 1}, first);
    for (size_t i = 1; i < room.girders.size(); ++i) {
        const int16_t from = room.girders[i - 1];
        const int16_t to = room.girders[i];
        AddRow(draft, room.inner, {from, 2}, {to, 2}, Angle(250, kRight, 0.6F));
        if (i > 1) AddRow(draft, bottom, {from, 1}, {to, 1}, Tee(280, kLeft, 0.6F));
    }
    const NodeReference margin{room.girders.back(), 2};
    AddRow(draft, room.inner, margin, {room.inner, 2}, Angle(250, kRight, kSpacing_m));
    DropLast(draft, room.inner);
    for (const int16_t girder : room.girders) {
        AddRow(draft, girder, {girder, 1}, {girder, 2}, FlatBar(150, kRight, 0.75F));
    }
}

// Longitudinals of the side stand between the decks.
void StiffenSides(EngineRoom& room) {
    SectionDraft& draft = room.draft;
    const int16_t side = room.top.side;
    const int16_t bilge = room.bottom.bilge;
    const StiffenerPlan bulb = Bulb(260, kLeft, kSpacing_m);
    AddRow(draft, bilge, {bilge, 1}, {bilge, 2}, bulb);
    AddRow(draft, bilge, {bilge, 2}, {bilge, 3}, bulb);
    AddRow(draft, side, {side, 1}, {room.lower, 1}, bulb);
    AddRow(draft, side, {room.lower, 1}, {room.upper, 1}, bulb);
    AddRow(draft, side, {room.upper, 1}, {side, 2}, bulb);
    AddRow(draft, room.top.sheer, {side, 2}, {room.top.sheer, 2}, bulb);
    AddRow(draft, room.tankSide, {room.tankSide, 1}, {room.tankSide, 2},
           Angle(200, kRight, kSpacing_m));
    const StiffenerPlan beam = Angle(200, kLeft, kSpacing_m);
    for (const int16_t end : {int16_t{1}, int16_t{2}}) {
        const int16_t flat = end == 1 ? room.lower : room.upper;
        AddRow(draft, flat, {flat, 1}, {room.tankSide, end}, beam);
        AddRow(draft, flat, {room.tankSide, end}, {flat, 2}, beam);
    }
    const int16_t deck = room.top.deck;
    AddRow(draft, deck, {deck, 1}, {deck, 2}, FlatBar(220, kLeft, kSpacing_m));
}

void LayEngineRoom(EngineRoom& room) {
    SectionDraft& draft = room.draft;
    LayPlates(draft, room.bottom.keel, {3, {19}, kHigh});
    LayPlates(draft, room.bottom.bottom, {2.6F, {15}, kHigh});
    LayPlates(draft, room.bottom.bilge, {2.6F, {15}, kMild});
    LayPlates(draft, room.inner, {2.6F, {24, 16, 14}, kHigh});
    for (const int16_t girder : room.girders) {
        const float thickness_mm = girder == room.girders[1] ? 30 : 14;
        LayPlates(draft, girder, {2.4F, {thickness_mm}, kMild});
    }
    LayPlates(draft, room.top.side, {2.6F, {15, 14.5F, 14}, kMild});
    LayPlates(draft, room.top.sheer, {2.4F, {16}, kMild});
    LayPlates(draft, room.top.deck, {2.6F, {14}, kMild});
    LayPlates(draft, room.lower, {2.5F, {11, 10}, kMild});
    LayPlates(draft, room.upper, {2.5F, {11, 10}, kMild});
    LayPlates(draft, room.tankSide, {2.5F, {12.5F, 11.5F}, kMild});
    LayPlates(draft, room.casing, {2, {9}, kMild});
}

void AddEngineRoomTanks(EngineRoom& room) {
    SectionDraft& draft = room.draft;
    const int16_t bottom = room.bottom.bottom;
    const int16_t margin = room.girders.back();
    AddCompartment(draft, {L"Lubricating oil tank",
                           kFuel,
                           0.9F,
                           0.9F,
                           {{room.bottom.keel, 1},
                            {bottom, 1},
                            {room.girders[1], 1},
                            {room.girders[1], 2},
                            {room.inner, 1}}});
    AddCompartment(draft, {L"Fuel oil tank, double bottom",
                           kFuel,
                           0.95F,
                           0.9F,
                           {{room.girders[1], 1}, {margin, 1}, {margin, 2}, {room.girders[1], 2}}});
    AddCompartment(draft,
                   {L"Bilge water tank",
                    kBallast,
                    1.025F,
                    0.9F,
                    {{margin, 1}, {room.bottom.bilge, 1}, {room.bottom.bilge, 2}, {margin, 2}}});
    AddCompartment(draft,
                   {L"Fuel oil tank, wing",
                    kFuel,
                    0.95F,
                    0.9F,
                    {{room.tankSide, 1}, {room.lower, 1}, {room.upper, 1}, {room.tankSide, 2}}});
}

// ---- Fore peak ---------------------------------------------------------------------------------

constexpr float kPeakTop_m = 9;  // z of the flat over the tank
constexpr float kFlare_deg = 35;
constexpr float kFlareTangent_m = 4;  // from the corner of the flare to both its ends
constexpr float kPi = 3.14159265F;

struct ForePeak {
    SectionDraft& draft;
    BottomPanels bottom{};
    int16_t side = 0, flare = 0, sheer = 0, deck = 0, flat = 0, wash = 0;
    std::vector<int16_t> stringers{};  // each from the shell inwards
};

// Above the flat the side turns outwards, from the side's own slope to the flare.
void AddFlare(ForePeak& peak) {
    const Place low = SideAt(kForePeakForm, kPeakTop_m);
    const float slope = (kForePeakForm.deckHalf - kForePeakForm.baseHalf) / kForePeakForm.depth;
    const float rise = kFlareTangent_m / std::sqrt(1 + slope * slope);
    const Place corner = SideAt(kForePeakForm, low.z + rise);
    const float angle = kFlare_deg * kPi / 180;
    const Place high{corner.y + kFlareTangent_m * std::sin(angle),
                     corner.z + kFlareTangent_m * std::cos(angle)};
    const float depth = kForePeakForm.depth;
    const Place edge{high.y + (depth - high.z) * std::tan(angle), depth};
    SectionDraft& draft = peak.draft;
    peak.side = AddPanel(draft, L"Side shell", kSide, {On({peak.bottom.bilge, 2}), At(low)});
    peak.flare =
        AddPanel(draft, L"Flare", kSide, {WithTangent(On({peak.side, 2}), corner), At(high)});
    peak.sheer = AddPanel(draft, L"Sheer strake", kSide, {On({peak.flare, 2}), At(edge)});
    HullForm form = kForePeakForm;
    form.deckHalf = edge.y;
    peak.deck = AddPanel(
        draft, L"Main deck", kDeck,
        {WithRadius(On({peak.sheer, 2}), CamberRadius(form)), At({0, depth + form.camber})});
}

void AddFlat(ForePeak& peak) {
    SectionDraft& draft = peak.draft;
    peak.flat = AddPanel(draft, L"Flat 9.0", kPlatform, {On({peak.side, 2}), At({0, kPeakTop_m})});
    peak.wash = AddPanel(draft, L"Wash bulkhead", kLongitudinalBulkhead,
                         {On({peak.bottom.keel, 1}), On({peak.flat, 2})});
}

void AddStringers(ForePeak& peak) {
    struct Stringer {
        const wchar_t* name;
        int16_t shell;
        float near_m;  // y
        float z;
        float breadth_m;
    };
    for (const Stringer& stringer : {Stringer{L"Stringer 4.2", peak.side, 4.3F, 4.2F, 1},
                                     {L"Stringer 6.6", peak.side, 4.4F, 6.6F, 1},
                                     {L"Stringer 11.4", peak.flare, 4.8F, 11.4F, 1.2F},
                                     {L"Stringer 13.8", peak.flare, 5.6F, 13.8F, 1.2F},
                                     {L"Stringer 16.6", peak.sheer, 7.3F, 16.6F, 1.4F}}) {
        const Node shell = AtHeight(stringer.shell, {stringer.near_m, stringer.z});
        peak.stringers.push_back(
            AddPanel(peak.draft, stringer.name, kPlatform,
                     {shell, OffsetFrom({kThisPanel, 1}, -stringer.breadth_m, 0)}));
    }
}

void StiffenForePeak(ForePeak& peak) {
    SectionDraft& draft = peak.draft;
    const StiffenerPlan shell = Bulb(220, kLeft, 0.7F);
    const BottomPanels& bottom = peak.bottom;
    const std::vector<int16_t>& stringers = peak.stringers;
    AddRow(draft, bottom.bottom, {bottom.bottom, 1}, {bottom.bottom, 2}, shell);
    AddRow(draft, bottom.bilge, {bottom.bilge, 1}, {bottom.bilge, 2}, shell);
    AddRow(draft, peak.side, {peak.side, 1}, {stringers[0], 1}, shell);
    AddRow(draft, peak.side, {stringers[0], 1}, {stringers[1], 1}, shell);
    AddRow(draft, peak.side, {stringers[1], 1}, {peak.side, 2}, shell);
    AddRow(draft, peak.flare, {peak.flare, 1}, {stringers[2], 1}, shell);
    AddRow(draft, peak.flare, {stringers[2], 1}, {stringers[3], 1}, shell);
    AddRow(draft, peak.flare, {stringers[3], 1}, {peak.flare, 2}, shell);
    AddRow(draft, peak.sheer, {stringers[4], 1}, {peak.sheer, 2}, shell);
    AddRow(draft, peak.deck, {peak.deck, 1}, {peak.deck, 2}, Angle(200, kLeft, 0.7F));
    AddRow(draft, peak.flat, {peak.flat, 1}, {peak.flat, 2}, Angle(200, kLeft, 0.7F));
    AddRow(draft, peak.wash, {peak.wash, 1}, {peak.wash, 2}, FlatBar(180, kRight, 0.75F));
}

void LayForePeak(ForePeak& peak) {
    SectionDraft& draft = peak.draft;
    LayPlates(draft, peak.bottom.keel, {3, {18}, kMild});
    LayPlates(draft, peak.bottom.bottom, {2, {16}, kMild});
    LayPlates(draft, peak.bottom.bilge, {2.4F, {16}, kMild});
    LayPlates(draft, peak.side, {2.2F, {16, 15.5F, 15}, kMild});
    LayPlates(draft, peak.flare, {2.6F, {15, 14.5F}, kMild});
    LayPlates(draft, peak.sheer, {2.4F, {14}, kMild});
    LayPlates(draft, peak.deck, {2.6F, {13, 12}, kMild});
    LayPlates(draft, peak.flat, {2.6F, {10}, kMild});
    LayPlates(draft, peak.wash, {2.4F, {12, 11, 10}, kMild});
    for (const int16_t stringer : peak.stringers) LayPlates(draft, stringer, {2, {12}, kMild});
}

void AddPeakTanks(ForePeak& peak) {
    AddCompartment(peak.draft, {L"Fore peak tank",
                                kBallast,
                                1.025F,
                                0.76F,
                                {{peak.wash, 1},
                                 {peak.bottom.keel, 1},
                                 {peak.bottom.keel, 2},
                                 {peak.bottom.bilge, 1},
                                 {peak.bottom.bilge, 2},
                                 {peak.side, 2},
                                 {peak.flat, 2}}});
    AddCompartment(peak.draft, {L"Boatswain's store",
                                kStore,
                                0,
                                0,
                                {{peak.flat, 2},
                                 {peak.flat, 1},
                                 {peak.flare, 1},
                                 {peak.flare, 2},
                                 {peak.sheer, 2},
                                 {peak.deck, 1},
                                 {peak.deck, 2}}});
}

}  // namespace

void DraftEngineRoom(SectionDraft& draft) {
    constexpr float kSheerSeam_m = 17.4F;
    EngineRoom room{draft};
    room.bottom = AddBottom(draft, kEngineRoomForm);
    SplitBilge(room);
    room.top =
        AddSideAndDeck(draft, kEngineRoomForm, {{room.bottom.bilge, 3}, kSheerSeam_m, kCasing_m});
    AddTankTop(room);
    AddFlats(room);
    ComputeDraft(draft);
    StiffenTankTop(room);
    StiffenSides(room);
    ComputeDraft(draft);
    LayEngineRoom(room);
    AddEngineRoomTanks(room);
}

void DraftForePeak(SectionDraft& draft) {
    ForePeak peak{draft};
    peak.bottom = AddBottom(draft, kForePeakForm);
    AddFlare(peak);
    AddFlat(peak);
    AddStringers(peak);
    ComputeDraft(draft);
    StiffenForePeak(peak);
    ComputeDraft(draft);
    LayForePeak(peak);
    AddPeakTanks(peak);
}

}  // namespace corvane::samples
