// The sections of the sample ship. Each takes the head of its model, and fills in the rest.
#pragma once

#include "drafting/hull_form.h"

namespace corvane::samples {

using namespace drafting;

// The shells of the ship's ends.
inline constexpr HullForm kEngineRoomForm{0.9F, 8, 5, 11, 14.8F, 19.6F, 0.4F};
inline constexpr HullForm kForePeakForm{0.5F, 25, 2, 4.08F, 5.2F, 19.6F, 0.15F};

// What all holds have alike.
inline constexpr float kInnerBottom_m = 1.75F;
inline constexpr float kDuct_m = 1.6F;         // y of the girder beside the pipe duct
inline constexpr float kGirderPitch_m = 3.2F;  // between the girders outside of it
inline constexpr float kTopsideFoot_m = 14;    // z at the side
inline constexpr float kStoolTop_m = 4.5F;
inline constexpr float kUpperStool_m = 16.9F;

// What differs from hold to hold.
struct HoldPlan {
    HullForm form;
    float margin_m = 11.2F;    // y where the hopper begins
    float hopperTop_m = 7.2F;  // z where it ends at the side
    float hatchSide_m = 8;     // y
    float innerBottom_mm = 17;
    float bottom_mm = 16;
    float deck_mm = 28;
    bool dividedByBulkhead = false;  // stools and cross deck instead of the hatch
};

// The hold at section `number`, 2 to 8.
HoldPlan PlanOfHold(int32_t number);
// Where the topside tank's slope ends below the hatch side.
Place TopsideHead(const HoldPlan& plan);

void DraftHold(SectionDraft& draft, const HoldPlan& plan);
void DraftEngineRoom(SectionDraft& draft);
void DraftForePeak(SectionDraft& draft);

// Model 1 to 9 of the sample; the head's moments are brought to the section's place.
void DraftSection(SectionDraft& draft, int32_t number);

}  // namespace corvane::samples
