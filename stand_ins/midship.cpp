#include "stand_ins/midship.h"

#include <algorithm>
#include <cmath>

#include "bsd/frames.h"
#include "drafting/hull_form.h"

namespace corvane::stand_ins {
namespace {

using namespace drafting;

float WholeMillimetres(float length) {
    return std::round(length * 1000) / 1000;
}

float WholeDecimetres(float length) {
    return std::round(length * 10) / 10;
}

// ---- Sizes that follow from the parameters -----------------------------------------------------

HullForm FormOf(const MidshipParameters& parameters) {
    constexpr float kCamberPart = 0.0125F;  // of the breadth
    HullForm form;
    form.bilgeRadius = parameters.bilgeRadius;
    form.half = parameters.breadth / 2;
    // Room for one longitudinal on the keel plate, unless the bottom is too narrow.
    const float flat = form.half - form.bilgeRadius;
    form.keelHalf = WholeMillimetres(std::min(1.25F * parameters.spacing, flat / 2));
    form.depth = parameters.depth;
    form.camber = WholeMillimetres(kCamberPart * parameters.breadth);
    return form;
}

float SheerSeam(const MidshipParameters& parameters) {
    return WholeDecimetres(parameters.depth - std::clamp(parameters.depth / 8, 0.6F, 2.0F));
}

// Larger ships have deeper webs and thicker plates.
float WebHeight_mm(const MidshipParameters& parameters) {
    return std::clamp(std::round(parameters.breadth) * 10, 120.0F, 320.0F);
}

float Thickness_mm(const MidshipParameters& parameters) {
    return std::round(2 * (6 + 0.3F * parameters.breadth)) / 2;
}

// ---- Panels ------------------------------------------------------------------------------------

struct Midship {
    SectionDraft& draft;
    const MidshipParameters& parameters;
    HullForm form;
    BottomPanels bottom{};
    TopPanels top{};
    int16_t inner = 0;
    std::vector<int16_t> girders{};  // from the centre line outwards; each from foot to head
};

void AddGirders(Midship& ship) {
    constexpr float kBays = 4;  // of stiffeners between two girders
    const float pitch = kBays * ship.parameters.spacing;
    const float end = ship.form.half - ship.form.bilgeRadius - ship.parameters.spacing;
    ship.girders.push_back(AddPanel(ship.draft, L"Centre girder", kGirder,
                                    {On({ship.bottom.keel, 1}), On({ship.inner, 1})}));
    for (int i = 1; static_cast<float>(i) * pitch < end; ++i) {
        const float y = WholeMillimetres(static_cast<float>(i) * pitch);
        ship.girders.push_back(
            AddPanel(ship.draft, L"Side girder " + std::to_wstring(i), kGirder,
                     {AtBreadth(ship.bottom.bottom, {y, 0}),
                      AtBreadth(ship.inner, {y, ship.parameters.doubleBottom})}));
    }
}

void AddPanels(Midship& ship) {
    const MidshipParameters& parameters = ship.parameters;
    SectionDraft& draft = ship.draft;
    ship.bottom = AddBottom(draft, ship.form);
    ship.top = AddSideAndDeck(draft, ship.form, ship.bottom.bilge, SheerSeam(parameters));
    const float z = parameters.doubleBottom;
    const Node end = z == parameters.bilgeRadius ? On({ship.bottom.bilge, 2})
                                                 : AtHeight(ship.top.side, {ship.form.half, z});
    ship.inner = AddPanel(draft, L"Inner bottom", kInnerBottom, {At({0, z}), end});
    AddGirders(ship);
    // The parameter, which is read back; the rows' spacings are rounded to fill their panels.
    for (Panel& panel : draft.model.panels) panel.spacing_m = parameters.spacing;
}

// ---- Stiffeners, plates, compartments ----------------------------------------------------------

void StiffenDoubleBottom(Midship& ship) {
    SectionDraft& draft = ship.draft;
    const float s = ship.parameters.spacing;
    const StiffenerPlan bottom = Tee(WebHeight_mm(ship.parameters), kLeft, s);
    const StiffenerPlan inner = Angle(WebHeight_mm(ship.parameters), kRight, s);
    const int16_t shell = ship.bottom.bottom;
    if (s < ship.form.keelHalf) {
        AddRowFrom(draft, ship.bottom.keel, {{ship.bottom.keel, 1}, s, 1}, bottom);
    }
    NodeReference foot{shell, 1};
    NodeReference head{ship.inner, 1};
    for (size_t i = 1; i < ship.girders.size(); ++i) {
        const int16_t girder = ship.girders[i];
        if (i == 1) {
            // In line with those of the inner bottom, which begin at the centre line.
            AddRowFrom(draft, shell, {foot, WholeMillimetres(2 * s - ship.form.keelHalf), 2},
                       bottom);
        } else {
            AddRow(draft, shell, foot, {girder, 1}, bottom);
        }
        AddRow(draft, ship.inner, head, {girder, 2}, inner);
        foot = {girder, 1};
        head = {girder, 2};
    }
    AddRow(draft, shell, foot, {shell, 2}, bottom);
    AddRow(draft, ship.inner, head, {ship.inner, 2}, inner);
    for (const int16_t girder : ship.girders) {
        AddRow(draft, girder, {girder, 1}, {girder, 2}, FlatBar(150, kRight, s));
    }
}

void StiffenShell(Midship& ship) {
    SectionDraft& draft = ship.draft;
    const float s = ship.parameters.spacing;
    const StiffenerPlan bulb = Bulb(WebHeight_mm(ship.parameters) * 0.8F, kLeft, s);
    const int16_t bilge = ship.bottom.bilge;
    const int16_t side = ship.top.side;
    const int16_t sheer = ship.top.sheer;
    const int16_t deck = ship.top.deck;
    AddRow(draft, bilge, {bilge, 1}, {bilge, 2}, bulb);
    AddRow(draft, side, {side, 1}, {ship.inner, 2}, bulb);
    AddRow(draft, side, {ship.inner, 2}, {side, 2}, bulb);
    AddRow(draft, sheer, {side, 2}, {sheer, 2}, bulb);
    AddRow(draft, deck, {deck, 1}, {deck, 2}, bulb);
}

void LayAllPlates(Midship& ship) {
    SectionDraft& draft = ship.draft;
    const float t = Thickness_mm(ship.parameters);
    LayPlates(draft, ship.bottom.keel, {3, {t + 2}, kMild});
    LayPlates(draft, ship.bottom.bottom, {2.5F, {t}, kMild});
    LayPlates(draft, ship.bottom.bilge, {2.5F, {t}, kMild});
    LayPlates(draft, ship.top.side, {2.5F, {t, t - 1}, kMild});
    LayPlates(draft, ship.top.sheer, {2.5F, {t + 1}, kMild});
    LayPlates(draft, ship.top.deck, {2.5F, {t + 1, t}, kMild});
    LayPlates(draft, ship.inner, {2.5F, {t + 1}, kMild});
    for (const int16_t girder : ship.girders) LayPlates(draft, girder, {2.5F, {t - 2}, kMild});
}

void AddCompartments(Midship& ship) {
    const BottomPanels& bottom = ship.bottom;
    const int16_t inner = ship.inner;
    std::vector<NodeReference> tank{{bottom.keel, 1}, {bottom.keel, 2}, {bottom.bilge, 1}};
    if (ship.parameters.doubleBottom > ship.parameters.bilgeRadius) {
        tank.push_back({bottom.bilge, 2});
    }
    tank.push_back({inner, 2});
    tank.push_back({inner, 1});
    AddCompartment(ship.draft, {L"Double bottom", kBallast, 1.025F, 0.76F, tank});
    const TopPanels& top = ship.top;
    AddCompartment(ship.draft,
                   {L"Hold",
                    kCargo,
                    1,
                    0,
                    {{inner, 1}, {inner, 2}, {top.side, 2}, {top.deck, 1}, {top.deck, 2}}});
}

float Or(float value, float usual) {
    return value > 0 ? value : usual;
}

const Panel* FindKind(const SectionModel& section, int16_t kind) {
    const auto found = std::ranges::find(section.panels, kind, &Panel::kind);
    return found == section.panels.end() ? nullptr : &*found;
}

// Within the seven digits of the file.
bool IsSameLength(float a, float b) {
    return std::abs(a - b) <= 1e-5F * std::max(1.0F, std::abs(a));
}

bool IsSameNode(const Node& a, const Node& b) {
    return a.kind == b.kind && a.onStrake == b.onStrake && a.onNode == b.onNode &&
           IsSameLength(a.givenY, b.givenY) && IsSameLength(a.givenZ, b.givenZ) &&
           IsSameLength(a.radius, b.radius);
}

bool IsSamePanel(const Panel& a, const Panel& b) {
    return a.name == b.name && a.kind == b.kind && IsSameLength(a.spacing_m, b.spacing_m) &&
           a.stiffeners.size() == b.stiffeners.size() && a.plates.size() == b.plates.size() &&
           std::ranges::equal(a.nodes, b.nodes, IsSameNode);
}

// The spacing of the frame table at the section.
float FrameSpacingAt(const BasicShipData& bsd, float x) {
    constexpr float kUsual_m = 0.8F;
    const NearestFrameResult nearest = NearestFrame(bsd, double{x});
    if (!nearest.found) return kUsual_m;
    const double gap = FrameX(bsd, nearest.frame + 1) - FrameX(bsd, nearest.frame);
    return Or(WholeMillimetres(static_cast<float>(gap)), kUsual_m);
}

}  // namespace

float MostDoubleBottom(const MidshipParameters& parameters) {
    return WholeMillimetres(parameters.depth / 3);
}

float MostBilgeRadius(const MidshipParameters& parameters) {
    return std::min(parameters.doubleBottom, WholeMillimetres(parameters.breadth / 4));
}

MidshipParameters UsualParameters(const BasicShipData& bsd) {
    const auto within = [](float value, Range limits) {
        return std::clamp(value, static_cast<float>(limits.least), static_cast<float>(limits.most));
    };
    MidshipParameters usual;
    usual.breadth = within(Or(bsd.MainData(2), 20), kBreadthRange);
    usual.depth = within(Or(bsd.MainData(3), 12), kDepthRange);
    usual.doubleBottom = within(WholeDecimetres(usual.breadth / 20), kDoubleBottomRange);
    usual.doubleBottom = std::min(usual.doubleBottom, MostDoubleBottom(usual));
    usual.bilgeRadius = WholeDecimetres(0.8F * MostBilgeRadius(usual));
    usual.spacing = 0.8F;
    return usual;
}

MidshipParameters ParametersOf(const SectionModel& section, const BasicShipData& bsd) {
    MidshipParameters found = UsualParameters(bsd);
    found.breadth = Or(section.breadth_m, found.breadth);
    found.depth = Or(section.depth_m, found.depth);
    if (const Panel* inner = FindKind(section, kInnerBottom)) {
        if (!inner->nodes.empty()) {
            found.doubleBottom = Or(inner->nodes.front().givenZ, found.doubleBottom);
        }
    }
    if (const Panel* bilge = FindKind(section, kBilge)) {
        if (!bilge->nodes.empty()) {
            found.bilgeRadius = Or(bilge->nodes.front().radius, found.bilgeRadius);
        }
    }
    if (const Panel* bottom = FindKind(section, kBottom)) {
        found.spacing = Or(bottom->spacing_m, found.spacing);
    }
    return found;
}

bool IsMidship(const SectionModel& section, const MidshipParameters& parameters) {
    SectionModel drafted;
    drafted.frameSpacing_m = section.frameSpacing_m;
    drafted.webSpacing_m = section.webSpacing_m;
    return DraftMidship(drafted, parameters) == 0 &&
           std::ranges::equal(section.panels, drafted.panels, IsSamePanel);
}

void SetHead(SectionModel& section, const BasicShipData& bsd) {
    section.shipType = bsd.ShipType();
    section.classCode = bsd.TypeCodes(2);
    section.draught_m = bsd.MainData(6);
    section.frameSpacing_m = FrameSpacingAt(bsd, section.x_m);
    section.webSpacing_m = WholeMillimetres(4 * section.frameSpacing_m);
    section.holdLength_m = WholeMillimetres(8 * section.webSpacing_m);
    // The ship's data have no moments.
    section.momentsAbsent = -1;
}

int16_t DraftMidship(SectionModel& section, const MidshipParameters& parameters) {
    SectionDraft draft;
    draft.model = section;
    draft.model.panels.clear();
    draft.model.compartments.clear();
    draft.model.breadth_m = parameters.breadth;
    draft.model.depth_m = parameters.depth;
    Midship ship{draft, parameters, FormOf(parameters)};
    AddPanels(ship);
    ComputeDraft(draft);
    StiffenDoubleBottom(ship);
    StiffenShell(ship);
    ComputeDraft(draft);
    LayAllPlates(ship);
    AddCompartments(ship);
    ComputeDraft(draft);
    if (draft.code != 0) return draft.code;
    MeasureHullGirder(draft);
    section = draft.model;
    return 0;
}

}  // namespace corvane::stand_ins
