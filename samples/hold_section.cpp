// Sections through the holds: double bottom with pipe duct, hopper, single side, topside tank.
#include <cmath>
#include <numbers>

#include "samples/ship_sections.h"

namespace corvane::samples {
namespace {

constexpr float kSheerSeam_m = 17.6F;
constexpr float kTopsideSlope_deg = 30;

struct HoldPanels {
    BottomPanels bottom{};
    TopPanels top{};
    int16_t inner = 0, hopper = 0;
    std::vector<int16_t> girders;  // from the centre line outwards; each from foot to head
    int16_t vertical = 0, slope = 0;
    int16_t coaming = 0, topBar = 0, cover = 0;
    int16_t crossDeck = 0, stool = 0, upperStool = 0;
};

// Outlines follow a panel from node to node, so they name the hull's panels one after the other.
struct Hold {
    SectionDraft& draft;
    const HoldPlan& plan;
    HoldPanels panels;
};

// ---- Panels ------------------------------------------------------------------------------------

void AddGirder(Hold& hold, const std::wstring& name, float y) {
    const BilgeForm bilge = BilgeOf(hold.plan.form);
    const bool onBilge = y > bilge.start.y;
    const int16_t shell = onBilge ? hold.panels.bottom.bilge : hold.panels.bottom.bottom;
    const Node foot = y == 0 ? On({hold.panels.bottom.keel, 1}) : AtBreadth(shell, {y, 0});
    const Node head = AtBreadth(hold.panels.inner, {y, kInnerBottom_m});
    hold.panels.girders.push_back(AddPanel(hold.draft, name, kGirder, {foot, head}));
}

void AddDoubleBottom(Hold& hold) {
    HoldPanels& panels = hold.panels;
    const HoldPlan& plan = hold.plan;
    panels.inner = AddPanel(hold.draft, L"Inner bottom", kInnerBottom,
                            {At({0, kInnerBottom_m}), At({plan.margin_m, kInnerBottom_m})});
    panels.hopper = AddPanel(
        hold.draft, L"Hopper", kSlopingPlate,
        {On({panels.inner, 2}), AtHeight(panels.top.side, SideAt(plan.form, plan.hopperTop_m))});
    AddGirder(hold, L"Centre girder", 0);
    AddGirder(hold, L"Duct girder 1.6", kDuct_m);
    for (int i = 1; kDuct_m + static_cast<float>(i) * kGirderPitch_m < plan.margin_m + 0.1F; ++i) {
        const float y = kDuct_m + static_cast<float>(i) * kGirderPitch_m;
        const std::wstring place = std::to_wstring(std::lround(10 * y));
        const std::wstring name = place.substr(0, place.size() - 1) + L'.' + place.back();
        AddGirder(hold, L"Girder " + name, y);
    }
}

void AddTopside(Hold& hold) {
    HoldPanels& panels = hold.panels;
    const HoldPlan& plan = hold.plan;
    const Place foot = SideAt(plan.form, kTopsideFoot_m);
    const Place corner = TopsideHead(plan);
    const Place deck = DeckAt(plan.form, plan.hatchSide_m);
    // Offsets are whole millimetres.
    const float height = std::round((deck.z - corner.z) * 1000) / 1000;
    panels.vertical = AddPanel(hold.draft, L"Vertical strake", kLongitudinalBulkhead,
                               {On({panels.top.deck, 2}), OffsetFrom({kThisPanel, 1}, 0, -height)});
    panels.slope = AddPanel(
        hold.draft, L"Topside slope", kSlopingPlate,
        {On({panels.vertical, 2}), WhereMeets(panels.top.side, {corner.y, deck.z - height}, foot)});
}

void AddHatch(Hold& hold) {
    constexpr float kCoaming_m = 1.1F;
    HoldPanels& panels = hold.panels;
    const NodeReference edge{panels.top.deck, 2};
    panels.coaming =
        AddPanel(hold.draft, L"Hatch coaming", kHatch, {On(edge), OffsetFrom(edge, 0, kCoaming_m)});
    const NodeReference top{panels.coaming, 2};
    panels.topBar = AddPanel(hold.draft, L"Coaming top bar", kHatch,
                             {OffsetFrom(top, -0.1F, 0), OffsetFrom(top, 0.35F, 0)});
    const float height = DeckAt(hold.plan.form, hold.plan.hatchSide_m).z + kCoaming_m;
    panels.cover = AddPanel(hold.draft, L"Hatch cover", kHatch, {On(top), At({0, height + 0.1F})});
}

void AddStools(Hold& hold) {
    HoldPanels& panels = hold.panels;
    const HullForm& form = hold.plan.form;
    panels.crossDeck =
        AddPanel(hold.draft, L"Cross deck", kHatch,
                 {WithRadius(On({panels.top.deck, 2}), CamberRadius(form)), At(DeckAt(form, 0))});
    panels.stool = AddPanel(hold.draft, L"Lower stool top", kPlatform,
                            {At({0, kStoolTop_m}), AtHeight(panels.hopper, {13.7F, kStoolTop_m})});
    panels.upperStool =
        AddPanel(hold.draft, L"Upper stool bottom", kPlatform,
                 {At({0, kUpperStool_m}), AtHeight(panels.slope, {11, kUpperStool_m})});
}

void AddPanels(Hold& hold) {
    HoldPanels& panels = hold.panels;
    panels.bottom = AddBottom(hold.draft, hold.plan.form);
    panels.top = AddSideAndDeck(hold.draft, hold.plan.form,
                                {{panels.bottom.bilge, 2}, kSheerSeam_m, hold.plan.hatchSide_m});
    AddDoubleBottom(hold);
    AddTopside(hold);
    if (hold.plan.dividedByBulkhead) {
        AddStools(hold);
    } else {
        AddHatch(hold);
    }
}

// ---- Stiffeners and plates ---------------------------------------------------------------------

// Between the girders, on the bottom and below the inner bottom.
void StiffenDoubleBottom(Hold& hold) {
    const HoldPanels& panels = hold.panels;
    SectionDraft& draft = hold.draft;
    const int16_t duct = panels.girders[1];
    AddRowFrom(draft, panels.bottom.keel, {{panels.bottom.keel, 1}, 0.8F, 1}, Tee(320, kLeft));
    AddRow(draft, panels.inner, {panels.inner, 1}, {duct, 2}, Angle(280, kRight));
    for (size_t i = 2; i < panels.girders.size(); ++i) {
        const int16_t from = panels.girders[i - 1];
        const int16_t to = panels.girders[i];
        AddRow(draft, panels.bottom.bottom, {from, 1}, {to, 1}, Tee(320, kLeft));
        AddRow(draft, panels.inner, {from, 2}, {to, 2}, Angle(280, kRight));
    }
    AddRow(draft, panels.bottom.bottom, {panels.girders.back(), 1}, {panels.bottom.bottom, 2},
           Tee(320, kLeft));
    if (hold.plan.form.bilgeRadius > 2.5F) {
        AddRow(draft, panels.bottom.bilge, {panels.bottom.bilge, 1}, {panels.bottom.bilge, 2},
               Bulb(260, kLeft));
    }
    for (const int16_t girder : panels.girders) {
        AddRow(draft, girder, {girder, 1}, {girder, 2}, FlatBar(150, kRight));
    }
    AddRow(draft, panels.hopper, {panels.hopper, 1}, {panels.hopper, 2}, Angle(250, kRight));
    DropLast(draft, panels.hopper);
    AddRow(draft, panels.top.side, {panels.top.side, 1}, {panels.hopper, 2}, Tee(250, kLeft));
}

void StiffenTopside(Hold& hold) {
    const HoldPanels& panels = hold.panels;
    SectionDraft& draft = hold.draft;
    const int16_t deck = panels.top.deck;
    AddRowFrom(draft, panels.top.side, {{panels.slope, 2}, 0.8F, 4}, Bulb(260, kLeft));
    AddRowFrom(draft, panels.top.sheer, {{panels.top.sheer, 1}, 0.4F, 2}, Bulb(260, kLeft));
    AddRow(draft, deck, {deck, 1}, {deck, 2}, FlatBar(240, kLeft));
    AddRow(draft, panels.slope, {panels.slope, 1}, {panels.slope, 2}, Angle(250, kLeft));
    AddRow(draft, panels.vertical, {panels.vertical, 1}, {panels.vertical, 2},
           FlatBar(200, kLeft, 0.6F));
    if (!hold.plan.dividedByBulkhead) {
        AddRow(draft, panels.coaming, {panels.coaming, 1}, {panels.coaming, 2},
               FlatBar(200, kRight, 0.55F));
        return;
    }
    AddRow(draft, panels.crossDeck, {panels.crossDeck, 1}, {panels.crossDeck, 2},
           FlatBar(200, kLeft));
    AddRow(draft, panels.stool, {panels.stool, 1}, {panels.stool, 2}, Angle(250, kRight));
    AddRow(draft, panels.upperStool, {panels.upperStool, 1}, {panels.upperStool, 2},
           Angle(250, kLeft));
    DropLast(draft, panels.stool);
    DropLast(draft, panels.upperStool);
}

void LayShell(Hold& hold) {
    const HoldPanels& panels = hold.panels;
    const HoldPlan& plan = hold.plan;
    SectionDraft& draft = hold.draft;
    LayPlates(draft, panels.bottom.keel, {3, {plan.bottom_mm + 3}, kHigh});
    LayPlates(draft, panels.bottom.bottom, {2.8F, {plan.bottom_mm}, kHigh});
    LayPlates(draft, panels.bottom.bilge, {2.8F, {plan.bottom_mm}, kHigh});
    LayPlates(draft, panels.top.side, {2.7F, {17, 16.5F, 16.5F, 16}, kMild});
    LayPlates(draft, panels.top.sheer, {2.4F, {plan.deck_mm}, kHigh});
    LayPlates(draft, panels.top.deck, {2.8F, {plan.deck_mm}, kHigh});
}

void LayInside(Hold& hold) {
    const HoldPanels& panels = hold.panels;
    SectionDraft& draft = hold.draft;
    LayPlates(draft, panels.inner, {2.9F, {hold.plan.innerBottom_mm}, kHigh});
    LayPlates(draft, panels.hopper,
              {2.6F, {hold.plan.innerBottom_mm + 1, hold.plan.innerBottom_mm - 1}, kHigh});
    for (const int16_t girder : panels.girders) {
        const float thickness_mm = girder == panels.girders.front() ? 15 : 13.5F;
        LayPlates(draft, girder, {2, {thickness_mm}, kMild});
    }
    LayPlates(draft, panels.vertical, {2, {20}, kHigh});
    LayPlates(draft, panels.slope, {2.4F, {18, 16, 15, 14}, kHigh});
    if (hold.plan.dividedByBulkhead) {
        LayPlates(draft, panels.crossDeck, {2.8F, {14}, kMild});
        LayPlates(draft, panels.stool, {2.9F, {15}, kMild});
        LayPlates(draft, panels.upperStool, {2.9F, {13}, kMild});
    } else {
        LayPlates(draft, panels.coaming, {2, {18}, kHigh});
        LayPlates(draft, panels.topBar, {2, {22}, kHigh});
        LayPlates(draft, panels.cover, {3, {10}, kHigh});
    }
}

// Lightening holes in the girders that are not tight.
void CutGirders(Hold& hold) {
    const std::vector<int16_t>& girders = hold.panels.girders;
    for (size_t i = 2; i + 1 < girders.size(); ++i) {
        Opening opening;
        opening.item = 1;
        opening.at = {girders[i], 1};
        opening.shape = 1;
        opening.count = 2;
        opening.length_m = 0.8F;
        opening.breadth_m = 0.6F;
        hold.draft.model.panels[static_cast<size_t>(girders[i] - 1)].openings.push_back(opening);
    }
}

// ---- Compartments ------------------------------------------------------------------------------

void AddTanks(Hold& hold) {
    const HoldPanels& panels = hold.panels;
    SectionDraft& draft = hold.draft;
    const int16_t duct = panels.girders[1];
    const int16_t bilge = panels.bottom.bilge;
    AddCompartment(
        draft,
        {L"Double bottom and hopper tank",
         kBallast,
         1.025F,
         0.76F,
         {{duct, 1}, {bilge, 1}, {bilge, 2}, {panels.hopper, 2}, {panels.hopper, 1}, {duct, 2}}});
    AddCompartment(draft, {L"Pipe duct",
                           kVoid,
                           0,
                           0.76F,
                           {{panels.bottom.keel, 1},
                            {panels.bottom.keel, 2},
                            {duct, 1},
                            {duct, 2},
                            {panels.inner, 1}}});
    AddCompartment(draft, {L"Topside tank",
                           kBallast,
                           1.025F,
                           0.76F,
                           {{panels.slope, 2},
                            {panels.top.side, 2},
                            {panels.top.sheer, 2},
                            {panels.top.deck, 1},
                            {panels.top.deck, 2},
                            {panels.vertical, 2}}});
}

void AddCargoHold(Hold& hold) {
    const HoldPanels& panels = hold.panels;
    AddCompartment(hold.draft, {L"Cargo hold",
                                kCargo,
                                1.78F,
                                0,
                                {{panels.inner, 1},
                                 {panels.inner, 2},
                                 {panels.hopper, 2},
                                 {panels.slope, 2},
                                 {panels.slope, 1},
                                 {panels.vertical, 1},
                                 {panels.coaming, 2},
                                 {panels.cover, 2}}});
}

void AddDividedHold(Hold& hold) {
    const HoldPanels& panels = hold.panels;
    AddCompartment(hold.draft,
                   {L"Lower stool",
                    kVoid,
                    0,
                    0.76F,
                    {{panels.inner, 1}, {panels.inner, 2}, {panels.stool, 2}, {panels.stool, 1}}});
    AddCompartment(hold.draft, {L"Cargo hold",
                                kCargo,
                                1.78F,
                                0,
                                {{panels.stool, 1},
                                 {panels.stool, 2},
                                 {panels.hopper, 2},
                                 {panels.slope, 2},
                                 {panels.upperStool, 2},
                                 {panels.upperStool, 1}}});
    AddCompartment(hold.draft, {L"Upper stool",
                                kVoid,
                                0,
                                0.76F,
                                {{panels.upperStool, 1},
                                 {panels.upperStool, 2},
                                 {panels.slope, 1},
                                 {panels.vertical, 1},
                                 {panels.crossDeck, 2}}});
}

}  // namespace

Place TopsideHead(const HoldPlan& plan) {
    const Place foot = SideAt(plan.form, kTopsideFoot_m);
    const float slope = std::tan(kTopsideSlope_deg * std::numbers::pi_v<float> / 180);
    return {plan.hatchSide_m, foot.z + (foot.y - plan.hatchSide_m) * slope};
}

void DraftHold(SectionDraft& draft, const HoldPlan& plan) {
    Hold hold{draft, plan, {}};
    AddPanels(hold);
    ComputeDraft(draft);
    StiffenDoubleBottom(hold);
    StiffenTopside(hold);
    ComputeDraft(draft);
    LayShell(hold);
    LayInside(hold);
    CutGirders(hold);
    AddTanks(hold);
    if (plan.dividedByBulkhead) {
        AddDividedHold(hold);
    } else {
        AddCargoHold(hold);
    }
}

}  // namespace corvane::samples
