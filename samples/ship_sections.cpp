#include "samples/ship_sections.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace corvane::samples {
namespace {

// Frames of the bulkheads at the ends of the compartments: aft, then fore.
constexpr std::array<std::array<int16_t, 2>, 9> kFrames{{{12, 46},
                                                         {46, 76},
                                                         {76, 106},
                                                         {106, 136},
                                                         {136, 166},
                                                         {166, 196},
                                                         {196, 226},
                                                         {226, 254},
                                                         {254, 292}}};

// Hogging, sagging, harbour of the whole ship.
constexpr std::array<float, 3> kStillWater_kNm{1850000, 1720000, 1100000};
constexpr std::array<float, 3> kWave_kNm{2450000, 2610000, 0};
constexpr float kLength_m = 217;

// Moments are full from 0.4 to 0.65 of the length and none at its ends.
float MomentFactor(float x) {
    const float part = x / kLength_m;
    return std::clamp(std::min(part / 0.4F, (1 - part) / 0.35F), 0.0F, 1.0F);
}

float InThousands(float moment) {
    return std::round(moment / 1000) * 1000;
}

void SetMoments(SectionModel& model) {
    const float factor = MomentFactor(model.x_m);
    for (int k = 1; k <= 3; ++k) {
        const auto i = static_cast<size_t>(k - 1);
        model.stillWaterMoment_kNm(k) = InThousands(factor * kStillWater_kNm[i]);
        model.waveMoment_kNm(k) = InThousands(factor * kWave_kNm[i]);
    }
}

}  // namespace

// The midship section, and what the other holds have different. Heavy cargo goes into the odd
// holds.
HoldPlan PlanOfHold(int32_t number) {
    HoldPlan plan;
    switch (number) {
        case 2:  // hold 7
            plan.form = {1, 1.5F, 5, 15.6F, 16.125F, 19.6F, 0.4F};
            plan.margin_m = 8;
            plan.hopperTop_m = 8.8F;
            plan.innerBottom_mm = 18.5F;
            plan.bottom_mm = 15.5F;
            plan.deck_mm = 21;
            break;
        case 3:  // hold 6
            plan.deck_mm = 26;
            break;
        case 4:  // hold 5
            plan.innerBottom_mm = 19.5F;
            break;
        case 6:  // hold 3
            plan.innerBottom_mm = 19.5F;
            plan.bottom_mm = 16.5F;
            break;
        case 7:  // hold 2
            plan.form.bilgeRadius = 2;
            plan.deck_mm = 25;
            plan.dividedByBulkhead = true;
            break;
        case 8:  // hold 1
            plan.form = {1, 3, 4.5F, 13.2F, 15.2F, 19.6F, 0.4F};
            plan.margin_m = 8;
            plan.hopperTop_m = 7.6F;
            plan.innerBottom_mm = 18.5F;
            plan.bottom_mm = 17;
            plan.deck_mm = 18;
            break;
        default:
            break;
    }
    return plan;
}

void DraftSection(SectionDraft& draft, int32_t number) {
    switch (number) {
        case 1:
            DraftEngineRoom(draft);
            break;
        case 9:
            DraftForePeak(draft);
            break;
        default:
            DraftHold(draft, PlanOfHold(number));
            break;
    }
    // Once more, with the stiffeners.
    ComputeDraft(draft);
    MeasureHullGirder(draft);
    SetMoments(draft.model);
    const auto& frames = kFrames[static_cast<size_t>(number - 1)];
    for (Compartment& compartment : draft.model.compartments) {
        compartment.ends(1) = frames[0];
        compartment.ends(2) = frames[1];
    }
}

}  // namespace corvane::samples
