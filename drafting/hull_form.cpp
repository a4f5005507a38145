#include "drafting/hull_form.h"

namespace corvane::drafting {
namespace {

StiffenerPlan Plan(const Scantlings& scantlings, int16_t side, float spacing_m) {
    const bool deep = scantlings.webHeight_mm >= 280;
    return {scantlings, deep ? kHigh : kMild, side, spacing_m, deep};
}

}  // namespace

BottomPanels AddBottom(SectionDraft& draft, const HullForm& form) {
    BottomPanels panels{};
    panels.keel = AddPanel(draft, L"Keel plate", kBottom, {At({0, 0}), At({form.keelHalf, 0})});
    panels.bottom = AddPanel(draft, L"Bottom", kBottom,
                             {On({panels.keel, 2}), At({form.half - form.bilgeRadius, 0})});
    panels.bilge = AddPanel(
        draft, L"Bilge", kBilge,
        {WithRadius(On({panels.bottom, 2}), form.bilgeRadius), At({form.half, form.bilgeRadius})});
    return panels;
}

TopPanels AddSideAndDeck(SectionDraft& draft, const HullForm& form, int16_t bilge, float seam_m) {
    const float camberRadius =
        (form.half * form.half + form.camber * form.camber) / (2 * form.camber);
    TopPanels panels{};
    panels.side = AddPanel(draft, L"Side shell", kSide, {On({bilge, 2}), At({form.half, seam_m})});
    panels.sheer = AddPanel(draft, L"Sheer strake", kSide,
                            {On({panels.side, 2}), At({form.half, form.depth})});
    panels.deck = AddPanel(
        draft, L"Main deck", kDeck,
        {WithRadius(On({panels.sheer, 2}), camberRadius), At({0, form.depth + form.camber})});
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
