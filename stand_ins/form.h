// What a program of this folder shows and asks: its window as a record, without a window.
//
// Each program of this folder replaces one of the suite's. It is a record StandIn that fills in a
// form from the database and, when the user saves, writes the values of the form's fields. A fault
// is reported where it is found, with the file, the reason and what to do.
#pragma once

#include <string>
#include <vector>

#include "database/model_kind.h"
#include "stand_ins/range.h"
#include "stand_ins/request.h"

namespace corvane::stand_ins {

// A line that the user cannot change.
struct Fact {
    std::wstring label;
    std::wstring value;
};

enum class FieldKind {
    kName,     // a text that is not empty and can be a line of the database
    kText,     // any text
    kNumber,   // a number from `range.least` to `range.most`
    kInteger,  // a whole number from `range.least` to `range.most`
    kChoice,   // one of `choices`
    kLines,    // several lines of text, ended by "\r\n"
};

struct Field {
    std::wstring label;  // with "&" before the letter of its key
    FieldKind kind = FieldKind::kText;
    std::wstring value;  // as shown at first, then as the user left it
    std::wstring unit;   // after the field
    Range range{};
    size_t longest = 0;     // characters of a text; 0: no limit
    bool isBeside = false;  // a number on one line with the number before it
    std::vector<std::wstring> choices;
};

// The state of the file when it was read: another program's change is not overwritten.
struct FileState {
    int64_t size = 0;
    int64_t modified = 0;
    bool operator==(const FileState&) const = default;
};

struct Form {
    Request request;
    FileState file;
    std::wstring modelName;  // of the requested model
    ModelKind modelKind = ModelKind::kSection;
    std::vector<Fact> facts;
    std::vector<Field> fields;
    int fault = -1;  // index of the field that prevented Save; -1: no field
};

// Whether the request must have the number of a model.
enum class ModelUse {
    kNone,      // the program is about the ship: a model number is ignored
    kOptional,  // without a number a new model is made
    kRequired,
};

// Asks the user a question. No is the answer that changes nothing.
using Question = bool (*)(const std::wstring& text);

struct StandIn {
    const wchar_t* title;  // of the window
    const wchar_t* note;   // what the program does and does not do
    ModelUse use;
    ModelKind kind;  // of the models that it accepts
    // Adds the program's own facts and fields. False: reported, the program ends.
    bool (*fill)(Form& form);
    // Writes what the fields say, which CheckFields has passed. A new model's number and the name
    // go into the form, on failure the field that is wrong, if one is. False: reported, the file is
    // as it was. Null: nothing is ever written.
    bool (*save)(Form& form, Question askYesNo);
};

// Reads the command line, checks that the database can be used, and fills in the form. False:
// reported, the program ends.
bool OpenForm(const StandIn& standIn, const std::wstring& commandLine, Form& form);

// Checks the fields and saves; the result says what was saved. Empty: nothing was saved, and why
// was reported. A file that another program has changed since it was read is not written.
std::wstring SaveForm(const StandIn& standIn, Form& form, Question askYesNo);

// ---- For the programs --------------------------------------------------------------------------

Field NameField(const std::wstring& value);
Field NumberField(const wchar_t* label, const wchar_t* unit, float value, Range range);

float NumberOf(const Field& field);

// The number under which the model is saved: the requested one, else that of a new model. 0: no
// number is left, which was reported.
int32_t NumberToSave(const Form& form);

// Checks each field alone. Reports the first that is wrong and returns its index, else -1.
int CheckFields(const std::vector<Field>& fields);

}  // namespace corvane::stand_ins
