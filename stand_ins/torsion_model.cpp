// The torsion program: makes a block of its kind, or renames one.
#include "bsd/bsd_file.h"
#include "report/reporters.h"
#include "stand_ins/stand_ins.h"
#include "stand_ins/torsion.h"
#include "text/text.h"

namespace corvane::stand_ins {
namespace {

// The fields, in their order in the form; an old model has only the first.
enum TorsionField : size_t { kName, kAft, kFore, kHolds };

bool FillFields(Form& form) {
    if (form.request.model > 0) {
        form.fields = {NameField(form.modelName)};
        return true;
    }
    BasicShipData bsd;
    if (!LoadBsdFromDatabase(form.request.databasePath, bsd)) return false;
    const float length = bsd.MainData(1);
    form.fields = {
        NameField(L"Torsion model"),
        NumberField(L"&Aft end", L"m from the aft perpendicular", 0.15F * length, {-50, 1000}),
        NumberField(L"&Fore end", L"m", 0.9F * length, {-50, 1000}),
        NumberField(L"&Holds", L"of equal length", 7, {1, 30}),
    };
    form.fields[kHolds].kind = FieldKind::kInteger;
    return true;
}

bool SaveFields(Form& form, Question) {
    const std::wstring& path = form.request.databasePath;
    TorsionModel model;
    model.name = Trim(form.fields[kName].value);
    if (form.fields.size() == 1) {
        if (!RenameModel(path, model.name, form.request.model)) return false;
        form.modelName = model.name;
        return true;
    }
    model.aft_m = NumberOf(form.fields[kAft]);
    model.fore_m = NumberOf(form.fields[kFore]);
    model.holdCount = static_cast<int32_t>(NumberOf(form.fields[kHolds]));
    if (model.fore_m <= model.aft_m) {
        form.fault = kFore;
        ReportMessage(L"Fore end: ¤ m is not forward of the aft end, ¤ m.²²Make it larger.",
                      {model.fore_m, model.aft_m});
        return false;
    }
    const int32_t number = NumberToSave(form);
    if (number == 0 || !WriteTorsionModel(path, model, number)) return false;
    form.request.model = number;
    form.modelName = model.name;
    return true;
}

}  // namespace

const StandIn kTorsionModel{
    L"Torsion model (stand-in)",
    L"This stand-in makes a torsion model of holds alone, or renames one. It computes and checks "
    L"nothing.",
    ModelUse::kOptional,
    ModelKind::kTorsion,
    FillFields,
    SaveFields,
};

}  // namespace corvane::stand_ins
