// Section input: makes a midship section from its parameters, or changes one.
#include <cmath>

#include "bsd/bsd_file.h"
#include "database/editing.h"
#include "database/section_block.h"
#include "report/reporters.h"
#include "stand_ins/midship.h"
#include "stand_ins/stand_ins.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane::stand_ins {
namespace {

// The fields, in their order in the form.
enum SectionField : size_t {
    kName,
    kX,
    kBreadth,
    kDepth,
    kDoubleBottom,
    kBilgeRadius,
    kSpacing,
};

// What the file has before the section is changed.
struct Before {
    BasicShipData bsd;
    SectionModel section;
    MidshipParameters parameters;
    bool isNew = false;
};

bool ReadBefore(const Form& form, Before& before) {
    const std::wstring& path = form.request.databasePath;
    if (!LoadBsdFromDatabase(path, before.bsd)) return false;
    before.isNew = form.request.model == 0;
    before.parameters = UsualParameters(before.bsd);
    if (before.isNew) return true;
    if (!ReadSectionBlock(path, form.request.model, false, before.section)) return false;
    before.parameters = ParametersOf(before.section, before.bsd);
    return true;
}

Field MetreField(const wchar_t* label, float value, Range limits) {
    return NumberField(label, L"m", value, limits);
}

bool FillFields(Form& form) {
    Before before;
    if (!ReadBefore(form, before)) return false;
    const MidshipParameters& parameters = before.parameters;
    const float x = before.isNew ? before.bsd.MainData(1) / 2 : before.section.x_m;
    form.fields = {
        NameField(before.isNew ? std::wstring(L"Midship section") : before.section.name),
        MetreField(L"Position &x", x, {-50, 1000}),
        MetreField(L"&Breadth", parameters.breadth, kBreadthRange),
        MetreField(L"&Depth", parameters.depth, kDepthRange),
        MetreField(L"Double bottom &height", parameters.doubleBottom, kDoubleBottomRange),
        MetreField(L"Bilge &radius", parameters.bilgeRadius, kBilgeRadiusRange),
        MetreField(L"Stiffener s&pacing", parameters.spacing, kSpacingRange),
    };
    return true;
}

float WholeMillimetres(const Field& field) {
    return std::round(NumberOf(field) * 1000) / 1000;
}

MidshipParameters EnteredParameters(const Form& form) {
    return {WholeMillimetres(form.fields[kBreadth]), WholeMillimetres(form.fields[kDepth]),
            WholeMillimetres(form.fields[kDoubleBottom]),
            WholeMillimetres(form.fields[kBilgeRadius]), WholeMillimetres(form.fields[kSpacing])};
}

// Whether the fields still have the values that the form showed at first.
bool AreUntouched(const Form& form, const MidshipParameters& shown) {
    const MidshipParameters entered = EnteredParameters(form);
    const auto near = [](float a, float b) { return std::abs(a - b) < 0.00051F; };
    return near(entered.breadth, shown.breadth) && near(entered.depth, shown.depth) &&
           near(entered.doubleBottom, shown.doubleBottom) &&
           near(entered.bilgeRadius, shown.bilgeRadius) && near(entered.spacing, shown.spacing);
}

// Limits that other parameters set.
bool CheckTogether(Form& form, const MidshipParameters& parameters) {
    if (parameters.doubleBottom > MostDoubleBottom(parameters)) {
        form.fault = kDoubleBottom;
        ReportMessage(
            L"Double bottom height: ¤ m is more than a third of the depth, ¤ m.²²Make "
            L"the double bottom lower, or the section deeper.",
            {parameters.doubleBottom, MostDoubleBottom(parameters)});
        return false;
    }
    if (parameters.bilgeRadius > MostBilgeRadius(parameters)) {
        form.fault = kBilgeRadius;
        ReportMessage(
            L"Bilge radius: ¤ m is more than the double bottom height or a "
            L"quarter of the breadth allows, ¤ m.²²Make the radius smaller.",
            {parameters.bilgeRadius, MostBilgeRadius(parameters)});
        return false;
    }
    return true;
}

// Whether a foreign section's panels may be replaced; asks the user.
bool ConfirmReplacing(const Before& before, Question askYesNo) {
    if (before.isNew || before.section.panels.empty() ||
        IsMidship(before.section, before.parameters)) {
        return true;
    }
    return askYesNo(SubstituteArguments(
        L"The section '¤' was not made by this stand-in. To save other dimensions, all its panels "
        L"and compartments are replaced by those of a simple midship section.²²Replace them?",
        {before.section.name}));
}

bool Draft(Form& form, Before& before, Question askYesNo) {
    const MidshipParameters parameters = EnteredParameters(form);
    if (!before.isNew && AreUntouched(form, before.parameters)) return true;
    if (!CheckTogether(form, parameters) || !ConfirmReplacing(before, askYesNo)) return false;
    const int16_t code = DraftMidship(before.section, parameters);
    if (code == 0) return true;
    ReportMessage(
        L"These dimensions give no section: the geometry fails with code ¤. Nothing "
        L"was saved.²²Choose dimensions that fit together better.",
        {int32_t{code}});
    return false;
}

bool SaveFields(Form& form, Question askYesNo) {
    Before before;
    if (!ReadBefore(form, before)) return false;
    before.section.name = Trim(form.fields[kName].value);
    before.section.x_m = NumberOf(form.fields[kX]);
    if (before.isNew) SetHead(before.section, before.bsd);
    if (!Draft(form, before, askYesNo)) return false;
    std::wstring path = form.request.databasePath;
    const int32_t number = NumberToSave(form);
    if (number == 0 || !ReplaceSection(path, before.section, number)) return false;
    form.request.model = number;
    form.modelName = before.section.name;
    return true;
}

}  // namespace

const StandIn kSectionInput{
    L"Section input (stand-in)",
    L"This stand-in makes a simple midship section from a few dimensions, or changes one. The "
    L"suite's own program describes every panel.",
    ModelUse::kOptional,
    ModelKind::kSection,
    FillFields,
    SaveFields,
};

}  // namespace corvane::stand_ins
