// Bulkhead input: makes an arrangement of one bulkhead, or renames and moves one.
#include <algorithm>
#include <cmath>

#include "bsd/bsd_file.h"
#include "database/bulkhead_block.h"
#include "database/editing.h"
#include "drafting/section_draft.h"
#include "report/messages.h"
#include "stand_ins/stand_ins.h"
#include "text/text.h"

namespace corvane::stand_ins {
namespace {

// The fields, in their order in the form; an old arrangement has only the first two.
enum BulkheadField : size_t { kName, kX, kType, kBreadth, kDepth };

constexpr wchar_t kPlane[] = L"Plane, with vertical stiffeners";
constexpr wchar_t kCorrugated[] = L"Corrugated";
constexpr int32_t kCorrugatedType = 1;

constexpr Range kPositions{-50, 1000};

bool FillOld(Form& form) {
    BulkheadArrangement arrangement;
    if (!ReadBulkheadBlock(form.request.databasePath, form.request.model, arrangement)) {
        return false;
    }
    form.fields = {NameField(arrangement.name),
                   NumberField(L"Position &x", L"m", arrangement.x_m, kPositions)};
    return true;
}

Field TypeField() {
    Field field;
    field.label = L"&Type";
    field.kind = FieldKind::kChoice;
    field.choices = {kPlane, kCorrugated};
    field.value = kPlane;
    return field;
}

bool FillFields(Form& form) {
    if (form.request.model > 0) return FillOld(form);
    BasicShipData bsd;
    if (!LoadBsdFromDatabase(form.request.databasePath, bsd)) return false;
    form.fields = {
        NameField(L"Bulkhead"),
        NumberField(L"Position &x", L"m", bsd.MainData(1) / 2, kPositions),
        TypeField(),
        NumberField(L"&Breadth", L"m", bsd.MainData(2), {1, 200}),
        NumberField(L"&Depth", L"m", bsd.MainData(3), {1, 100}),
    };
    return true;
}

// ---- One bulkhead from side to side ------------------------------------------------------------

// Bands of one plate each, thicker towards the bottom.
void LayPlates(Bulkhead& bulkhead, float half, float depth) {
    constexpr float kHeight_m = 2.5F;
    constexpr float kHighest_mm = 9;
    const int count = std::max(1, static_cast<int>(std::ceil(depth / kHeight_m)));
    for (int i = 1; i <= count; ++i) {
        const float part = static_cast<float>(i) / static_cast<float>(count);
        const float thickness = kHighest_mm + std::round(depth * (1 - part) / 2);
        bulkhead.bands[static_cast<int16_t>(i)] = {
            {std::round(depth * part * 1000) / 1000, half, thickness, 1}};
    }
}

// On one half, as all sections are.
void AddStiffeners(Bulkhead& bulkhead, float half, float depth) {
    constexpr float kSpacing_m = 0.8F;
    for (int i = 1; static_cast<float>(i) * kSpacing_m < half - kSpacing_m / 2; ++i) {
        SecondaryStiffener stiffener;
        stiffener.position_m = std::round(static_cast<float>(i) * kSpacing_m * 1000) / 1000;
        stiffener.scantlings = {kProfileAngle, 250, 11, 90, 15};
        stiffener.material = 1;
        stiffener.upperExtremity_m = depth;
        bulkhead.secondaryStiffeners.push_back(stiffener);
    }
}

Bulkhead MakeBulkhead(float half, float depth, bool corrugated) {
    Bulkhead bulkhead;
    bulkhead.name = corrugated ? L"Corrugated bulkhead" : L"Plane bulkhead";
    bulkhead.kind = corrugated ? kCorrugatedType : 0;
    bulkhead.material = 1;
    bulkhead.stiffening = 1;  // vertical
    bulkhead.stiffenedSide = 1;
    bulkhead.nodes = {drafting::At({0, 0}), drafting::At({half, 0}), drafting::At({half, depth}),
                      drafting::At({0, depth})};
    int16_t number = 0;
    for (Node& node : bulkhead.nodes) node.number = ++number;
    LayPlates(bulkhead, half, depth);
    if (corrugated) {
        bulkhead.corrugation = {0, 1.6F, 0.9F, 0.8F, -1, -1};
    } else {
        AddStiffeners(bulkhead, half, depth);
    }
    return bulkhead;
}

bool SaveFields(Form& form, Question) {
    std::wstring path = form.request.databasePath;
    BulkheadArrangement arrangement;
    const int32_t number = NumberToSave(form);
    const bool isNew = form.request.model == 0;
    if (number == 0 || (!isNew && !ReadBulkheadBlock(path, number, arrangement))) return false;
    arrangement.name = Trim(form.fields[kName].value);
    arrangement.x_m = NumberOf(form.fields[kX]);
    if (form.fields.size() > kType) {
        const bool corrugated = form.fields[kType].value == kCorrugated;
        arrangement.symmetric = -1;
        arrangement.bulkheads = {MakeBulkhead(NumberOf(form.fields[kBreadth]) / 2,
                                              NumberOf(form.fields[kDepth]), corrugated)};
    }
    if (!ReplaceBulkheadArrangement(path, arrangement, number)) return false;
    form.request.model = number;
    form.modelName = arrangement.name;
    return true;
}

}  // namespace

const StandIn kBulkheadInput{
    L"Bulkhead input (stand-in)",
    L"This stand-in makes an arrangement of one simple bulkhead, or renames and moves one. The "
    L"suite's own program describes every bulkhead and hold.",
    ModelUse::kOptional,
    ModelKind::kBulkhead,
    FillFields,
    SaveFields,
};

}  // namespace corvane::stand_ins
