#include "stand_ins/form.h"

#include "database/editing.h"
#include "database/model_kind.h"
#include "database/scanning.h"
#include "files/paths.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane::stand_ins {
namespace {

constexpr wchar_t kModelLabel[] = L"Model";

FileState StateOf(const system::FileStatus& status) {
    return {status.size, status.modified};
}

// ---- Opening -----------------------------------------------------------------------------------

bool IsUsable(const StandIn& standIn, Form& form) {
    const std::wstring& path = form.request.databasePath;
    system::FileStatus status;
    const system::ErrorNumber lookError = system::GetFileStatus(path, status);
    if (!status.exists || status.isDirectory) {
        const bool missing = lookError == system::kErrorNone;
        ReportMessage(L"The database '¤' was not found:²¤²²Open it in Corvane first.",
                      {path, system::ErrorText(missing ? system::kErrorFileNotFound : lookError)});
        return false;
    }
    TextReader reader;
    if (!OpenText(reader, path)) {
        ReportMessage(
            L"The database '¤' cannot be read:²¤²²Close the program that is using it, or make "
            L"sure that you may read it; then try again.",
            {path, system::ErrorText(reader.error)});
        return false;
    }
    if (!IsDatabaseFile(path)) {
        ReportMessage(L"The file '¤' is not a Corvane database.²²Open another file in Corvane.",
                      {path});
        return false;
    }
    if (standIn.save != nullptr && status.isReadOnly) {
        ReportMessage(
            L"The database '¤' is read-only and cannot be changed.²²Clear the file's "
            L"read-only attribute, or save the database under another name in Corvane.",
            {path});
        return false;
    }
    form.file = StateOf(status);
    return true;
}

// Finds kind and name of the requested model; false when there is no such model.
bool FindRequested(Form& form) {
    TextReader reader;
    std::string keyword;
    if (!OpenText(reader, form.request.databasePath) ||
        !FindModel(reader, form.request.model, keyword)) {
        return false;
    }
    form.modelKind = KindOfKeyword(keyword);
    const StructuralLines lines = FetchStructuralLines();
    std::string_view line;
    // The block begins with its marker, which ReadBlockLine would not pass.
    if (FindLine(reader, lines.modelMarker)) ReadLine(reader, line);
    while (ReadBlockLine(reader, lines.modelMarker, line)) {
        if (line != lines.nameLabel) continue;
        if (ReadBlockLine(reader, lines.modelMarker, line)) {
            form.modelName = Trim(system::WideFromAnsi(line));
        }
        break;
    }
    return true;
}

bool CheckRequested(const StandIn& standIn, Form& form) {
    if (standIn.use == ModelUse::kNone) return true;
    if (form.request.model == 0) {
        if (standIn.use == ModelUse::kOptional) return true;
        ReportMessage(L"No model was chosen in '¤'.²²Choose one in the list of Corvane first.",
                      {form.request.databasePath});
        return false;
    }
    if (!FindRequested(form)) {
        ReportMessage(kMsgModelMissing, {form.request.model, form.request.databasePath});
        return false;
    }
    if (form.modelKind == standIn.kind) return true;
    ReportMessage(
        L"Model ¤ of '¤' is of the kind '¤'; this program is for the kind '¤'.²²Choose "
        L"another model in Corvane.",
        {form.request.model, form.request.databasePath, KindName(form.modelKind),
         KindName(standIn.kind)});
    return false;
}

std::wstring ModelText(const Form& form) {
    if (form.request.model == 0) return L"a new one";
    return std::to_wstring(form.request.model) + L", " + form.modelName;
}

void AddFacts(const StandIn& standIn, Form& form) {
    form.facts = {{L"Program", FileNameOf(system::ProgramPath())},
                  {L"Switches", SwitchText(form.request)},
                  {L"Database", form.request.databasePath}};
    if (standIn.use != ModelUse::kNone) form.facts.push_back({kModelLabel, ModelText(form)});
}

// ---- Fields ------------------------------------------------------------------------------------

std::wstring PlainLabel(const Field& field) {
    return MenuCaptionText(field.label);
}

// Whether the file's single bytes can hold the text.
bool CheckLetters(const Field& field) {
    if (system::WideFromAnsi(system::AnsiFromWide(field.value)) == field.value) return true;
    ReportMessage(
        L"¤: the database cannot hold all characters of '¤'.²²Use the letters of "
        L"Western Europe.",
        {PlainLabel(field), field.value});
    return false;
}

bool CheckName(const Field& field) {
    const std::string name = system::AnsiFromWide(Trim(field.value));
    if (name.empty()) {
        ReportMessage(L"¤: the field is empty.²²Give a name.", {PlainLabel(field)});
        return false;
    }
    if (IsCommentLine(name) || IsHeaderLine(name) || name == GetMessageBytes(kMsgModelMarker)) {
        ReportMessage(
            L"¤: '¤' has a special meaning in the database.²²Begin the name with "
            L"a letter.",
            {PlainLabel(field), field.value});
        return false;
    }
    return CheckLetters(field);
}

bool CheckNumber(const Field& field) {
    const bool isNumber = ReadsAsNumber(field.value);
    const double value = isNumber ? LeadingNumber(field.value) : 0;
    const bool whole = field.kind == FieldKind::kInteger;
    if (isNumber && value >= field.range.least && value <= field.range.most &&
        (!whole || value == LeadingInteger(field.value))) {
        return true;
    }
    const std::wstring unit = field.unit.empty() ? field.unit : L' ' + field.unit;
    ReportMessage(whole ? L"¤: '¤' is not a whole number from ¤ to ¤¤."
                        : L"¤: '¤' is not a number from ¤ to ¤¤.²²Write decimals after a "
                          L"point, as in 12.5.",
                  {PlainLabel(field), field.value, field.range.least, field.range.most, unit});
    return false;
}

bool CheckField(const Field& field) {
    switch (field.kind) {
        case FieldKind::kName:
            return CheckName(field);
        case FieldKind::kNumber:
        case FieldKind::kInteger:
            return CheckNumber(field);
        case FieldKind::kText:
        case FieldKind::kLines:
            return CheckLetters(field);
        case FieldKind::kChoice:
            break;
    }
    return true;
}

// ---- Saving ------------------------------------------------------------------------------------

// Whether the file is still as it was read.
bool IsUnchanged(const Form& form) {
    const std::wstring& path = form.request.databasePath;
    system::FileStatus status;
    system::GetFileStatus(path, status);
    if (!status.exists) {
        ReportMessage(
            L"The database '¤' is gone: nothing was saved.²²Put it back, or close this "
            L"program.",
            {path});
        return false;
    }
    if (status.isReadOnly) {
        ReportMessage(
            L"The database '¤' has become read-only: nothing was saved.²²Clear the "
            L"file's read-only attribute and save again.",
            {path});
        return false;
    }
    if (StateOf(status) == form.file) return true;
    ReportMessage(
        L"Another program has changed the database '¤' since it was read: nothing was "
        L"saved.²²Close this program and choose the command in Corvane again.",
        {path});
    return false;
}

void AdoptSaved(const StandIn& standIn, Form& form) {
    system::FileStatus status;
    system::GetFileStatus(form.request.databasePath, status);
    form.file = StateOf(status);
    if (standIn.use == ModelUse::kNone) return;
    for (Fact& fact : form.facts) {
        if (fact.label == kModelLabel) fact.value = ModelText(form);
    }
}

}  // namespace

bool OpenForm(const StandIn& standIn, const std::wstring& commandLine, Form& form) {
    form = Form();
    if (!ReadRequest(commandLine, form.request)) return false;
    if (!IsUsable(standIn, form) || !CheckRequested(standIn, form)) return false;
    AddFacts(standIn, form);
    return standIn.fill(form);
}

std::wstring SaveForm(const StandIn& standIn, Form& form, Question askYesNo) {
    form.fault = CheckFields(form.fields);
    if (form.fault >= 0 || !IsUnchanged(form) || !standIn.save(form, askYesNo)) return {};
    AdoptSaved(standIn, form);
    const std::wstring what = standIn.use == ModelUse::kNone
                                  ? std::wstring(L"Basic Ship Data")
                                  : LowerCase(KindName(standIn.kind)) + L' ' + ModelText(form);
    return L"Saved: " + what + L", in " + FileNameOf(form.request.databasePath);
}

Field NameField(const std::wstring& value) {
    constexpr size_t kLongestName = 60;
    Field field;
    field.label = L"&Name";
    field.kind = FieldKind::kName;
    field.value = value;
    field.longest = kLongestName;
    return field;
}

Field NumberField(const wchar_t* label, const wchar_t* unit, float value, Range range) {
    Field field;
    field.label = label;
    field.kind = FieldKind::kNumber;
    field.unit = unit;
    field.value = GeneralText(value);
    field.range = range;
    return field;
}

float NumberOf(const Field& field) {
    return static_cast<float>(LeadingNumber(field.value));
}

int32_t NumberToSave(const Form& form) {
    if (form.request.model > 0) return form.request.model;
    const int32_t number = NextModelNumber(form.request.databasePath);
    if (number == 0) ReportNoNumberLeft(form.request.databasePath);
    return number;
}

int CheckFields(const std::vector<Field>& fields) {
    for (size_t i = 0; i < fields.size(); ++i) {
        if (!CheckField(fields[i])) return static_cast<int>(i);
    }
    return -1;
}

}  // namespace corvane::stand_ins
