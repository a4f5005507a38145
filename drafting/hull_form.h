// The shell of a midship section: a flat bottom, a round bilge, an upright side, and the camber of
// the deck. One half, y to port, as all sections are.
#pragma once

#include "drafting/section_draft.h"

namespace corvane::drafting {

struct HullForm {        // [m]
    float keelHalf = 1;  // half breadth of the keel plate
    float bilgeRadius = 0;
    float half = 0;    // half breadth of the section
    float depth = 0;   // at the side
    float camber = 0;  // of the deck over the whole breadth
};

// Keel plate, bottom and bilge.
struct BottomPanels {
    int16_t keel, bottom, bilge;
};
BottomPanels AddBottom(SectionDraft& draft, const HullForm& form);

// From the bilge: side shell up to the seam at the height `seam_m`, sheer strake, and the deck to
// the centre line.
struct TopPanels {
    int16_t side, sheer, deck;
};
TopPanels AddSideAndDeck(SectionDraft& draft, const HullForm& form, int16_t bilge, float seam_m);

// ---- Stiffeners --------------------------------------------------------------------------------

inline constexpr int16_t kLeft = -1;
inline constexpr int16_t kRight = 1;

StiffenerPlan Tee(float web_mm, int16_t side, float spacing_m);
StiffenerPlan Angle(float web_mm, int16_t side, float spacing_m);
StiffenerPlan Bulb(float web_mm, int16_t side, float spacing_m);
StiffenerPlan FlatBar(float web_mm, int16_t side, float spacing_m);

}  // namespace corvane::drafting
