// The shell of a section: a bottom with a deadrise, a bilge that touches bottom and side, a side
// that may flare, and the camber of the deck. One half, y to port, as all sections are.
#pragma once

#include "drafting/section_draft.h"

namespace corvane::drafting {

struct HullForm {
    float keelHalf = 1;  // [m] half breadth of the flat keel
    float deadrise_deg = 0;
    float bilgeRadius = 1.6F;
    float baseHalf = 16.125F;  // [m] where the side's line meets the base line
    float deckHalf = 16.125F;  // [m] half breadth at the deck
    float depth = 19.6F;
    float camber = 0.4F;  // [m] of the deck over the whole breadth
};

Place SideAt(const HullForm& form, float z);
Place DeckAt(const HullForm& form, float y);
float CamberRadius(const HullForm& form);

// The bilge: where it begins on the bottom and ends on the side, the corner of the two lines, and
// the centre of the arc.
struct BilgeForm {
    Place start, end, corner, centre;
};
BilgeForm BilgeOf(const HullForm& form);

// Keel plate, bottom and bilge; a bilge without deadrise is given by its radius, others by the
// corner.
struct BottomPanels {
    int16_t keel, bottom, bilge;
};
BottomPanels AddBottom(SectionDraft& draft, const HullForm& form);

// Side shell up to `seam_m`, sheer strake, and the deck from the side to `inner_m`.
struct TopPanels {
    int16_t side, sheer, deck;
};
struct TopPlan {
    NodeReference bilgeEnd;
    float seam_m;
    float inner_m;
};
TopPanels AddSideAndDeck(SectionDraft& draft, const HullForm& form, const TopPlan& plan);

// ---- Stiffeners --------------------------------------------------------------------------------

inline constexpr int16_t kLeft = -1;
inline constexpr int16_t kRight = 1;

StiffenerPlan Tee(float web_mm, int16_t side, float spacing_m = 0.8F);
StiffenerPlan Angle(float web_mm, int16_t side, float spacing_m = 0.8F);
StiffenerPlan Bulb(float web_mm, int16_t side, float spacing_m = 0.8F);
StiffenerPlan FlatBar(float web_mm, int16_t side, float spacing_m = 0.8F);

}  // namespace corvane::drafting
