#include "drafting/hull_form.h"

#include <cmath>
#include <numbers>

namespace corvane::drafting {
namespace {

struct Direction {
    float y, z;
};

Direction BottomDirection(const HullForm& form) {
    const float angle = form.deadrise_deg * std::numbers::pi_v<float> / 180;
    return {std::cos(angle), std::sin(angle)};
}

Direction SideDirection(const HullForm& form) {
    const float length = std::hypot(form.deckHalf - form.baseHalf, form.depth);
    return {(form.deckHalf - form.baseHalf) / length, form.depth / length};
}

Place Moved(Place place, Direction direction, float length) {
    return {place.y + length * direction.y, place.z + length * direction.z};
}

StiffenerPlan Plan(const Scantlings& scantlings, int16_t side, float spacing_m) {
    const bool deep = scantlings.webHeight_mm >= 280;
    return {scantlings, deep ? kHigh : kMild, side, spacing_m, deep};
}

}  // namespace

Place SideAt(const HullForm& form, float z) {
    return {form.baseHalf + (form.deckHalf - form.baseHalf) * z / form.depth, z};
}

float CamberRadius(const HullForm& form) {
    return (form.deckHalf * form.deckHalf + form.camber * form.camber) / (2 * form.camber);
}

Place DeckAt(const HullForm& form, float y) {
    const double radius = CamberRadius(form);
    const double drop = radius - std::sqrt(radius * radius - double{y} * y);
    return {y, static_cast<float>(form.depth + form.camber - drop)};
}

BilgeForm BilgeOf(const HullForm& form) {
    const Direction bottom = BottomDirection(form);
    const Direction side = SideDirection(form);
    // The corner is keel edge + s * bottom direction, on the side's line.
    const float slope = (form.deckHalf - form.baseHalf) / form.depth;
    const float s = (form.baseHalf - form.keelHalf) / (bottom.y - slope * bottom.z);
    BilgeForm bilge;
    bilge.corner = Moved({form.keelHalf, 0}, bottom, s);
    const float turn =
        std::atan2(bottom.y * side.z - bottom.z * side.y, bottom.y * side.y + bottom.z * side.z);
    const float tangent = form.bilgeRadius * std::tan(turn / 2);
    bilge.start = Moved(bilge.corner, bottom, -tangent);
    bilge.end = Moved(bilge.corner, side, tangent);
    bilge.centre = Moved(bilge.start, {-bottom.z, bottom.y}, form.bilgeRadius);
    return bilge;
}

BottomPanels AddBottom(SectionDraft& draft, const HullForm& form) {
    const BilgeForm bilge = BilgeOf(form);
    BottomPanels panels{};
    panels.keel = AddPanel(draft, L"Keel plate", kBottom, {At({0, 0}), At({form.keelHalf, 0})});
    panels.bottom = AddPanel(draft, L"Bottom", kBottom, {On({panels.keel, 2}), At(bilge.start)});
    const Node start = On({panels.bottom, 2});
    const bool plain = form.deadrise_deg == 0;
    panels.bilge =
        AddPanel(draft, L"Bilge", kBilge,
                 {plain ? WithRadius(start, form.bilgeRadius) : WithTangent(start, bilge.corner),
                  At(bilge.end)});
    return panels;
}

TopPanels AddSideAndDeck(SectionDraft& draft, const HullForm& form, const TopPlan& plan) {
    TopPanels panels{};
    panels.side =
        AddPanel(draft, L"Side shell", kSide, {On(plan.bilgeEnd), At(SideAt(form, plan.seam_m))});
    panels.sheer = AddPanel(draft, L"Sheer strake", kSide,
                            {On({panels.side, 2}), At({form.deckHalf, form.depth})});
    const Node edge = WithRadius(On({panels.sheer, 2}), CamberRadius(form));
    panels.deck = AddPanel(draft, L"Main deck", kDeck, {edge, At(DeckAt(form, plan.inner_m))});
    return panels;
}

// ---- Stiffeners --------------------------------------------------------------------------------

StiffenerPlan Tee(float web_mm, int16_t side, float spacing_m) {
    return Plan({kProfileTee, web_mm, 11, 125, 16}, side, spacing_m);
}

StiffenerPlan Angle(float web_mm, int16_t side, float spacing_m) {
    return Plan({kProfileAngle, web_mm, 11, 90, 15}, side, spacing_m);
}

StiffenerPlan Bulb(float web_mm, int16_t side, float spacing_m) {
    return Plan({kProfileBulb, web_mm, 11, 44, 32}, side, spacing_m);
}

StiffenerPlan FlatBar(float web_mm, int16_t side, float spacing_m) {
    return Plan({kProfileFlat, web_mm, 20, 0, 0}, side, spacing_m);
}

}  // namespace corvane::drafting
