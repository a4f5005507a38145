// The sections of the sample ship. Each takes the head of its model, and fills in the rest.
#pragma once

#include "drafting/hull_form.h"

namespace corvane::samples {

using namespace drafting;

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

void DraftHold(SectionDraft& draft, const HoldPlan& plan);
void DraftEngineRoom(SectionDraft& draft);
void DraftForePeak(SectionDraft& draft);

// Model 1 to 9 of the sample; the head's moments are brought to the section's place.
void DraftSection(SectionDraft& draft, int32_t number);

}  // namespace corvane::samples
