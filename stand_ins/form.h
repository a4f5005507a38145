// What a program of this folder shows and asks: its window as a record, without a window.
//
// The programs stand in for those of the suite. Each is a record StandIn that fills a form in from
// the database and, when the user saves, writes what the form's fields say. Faults are reported
// (report/messages.h) by whoever finds them, with the file, the reason and what to do.
#pragma once

#include <string>
#include <vector>

#include "database/model_kind.h"
#include "stand_ins/range.h"
#include "stand_ins/request.h"

namespace corvane::siblings {

// A line that the window shows and nobody changes.
struct Fact {
    std::wstring label;
    std::wstring value;
};

enum class FieldKind {
    kName,     // a text that must not be empty, and that may become a line of the database
    kText,     // any text
    kNumber,   // a number from `range.least` to `range.most`
    kInteger,  // a whole number from `range.least` to `range.most`
    kChoice,   // one of `choices`
    kLines,    // several lines of text, ended by "\r\n"
};

struct Field {
    std::wstring label;  // with "&" before the letter of its key
    FieldKind kind = FieldKind::kText;
    std::wstring value;  // what it shows, and what the user made of it
    std::wstring unit;   // behind the field
    Range range{};
    size_t longest = 0;  // characters of a text; 0: no limit
    std::vector<std::wstring> choices;
};

// The state of the file when it was read, so that nobody else's change is overwritten.
struct FileState {
    int64_t size = 0;
    int64_t modified = 0;
    bool operator==(const FileState&) const = default;
};

struct Form {
    Request request;
    FileState file;
    std::wstring modelName;  // of the model that was asked for
    ModelKind modelKind = ModelKind::kSection;
    std::vector<Fact> facts;
    std::vector<Field> fields;
    int fault = -1;  // index of the field that kept the form from being saved; -1: none
};

// What the request must tell about a model.
enum class ModelUse {
    kNone,      // the program is about the ship: a model number is passed over
    kOptional,  // without a number a new model is made
    kRequired,
};

// Asks the user a question. No is the answer that changes nothing.
using Question = bool (*)(const std::wstring& text);

struct StandIn {
    const wchar_t* title;  // of the window
    const wchar_t* note;   // what it does, and what it does not
    ModelUse use;
    ModelKind kind;  // of the models that it takes
    // Adds facts and fields of the program's own. False: reported, the program ends.
    bool (*fill)(Form& form);
    // Writes what the fields say, which CheckFields has passed. A new model's number and the name
    // go into the form, on failure the field that is wrong, if one is. False: reported, the file is
    // as it was. Null: nothing is ever written.
    bool (*save)(Form& form, Question askYesNo);
};

// Reads the command line, looks whether the database can be used, and fills the form in. False:
// reported, the program ends.
bool OpenForm(const StandIn& standIn, const std::wstring& commandLine, Form& form);

// Checks the fields and saves; the result tells what was saved. Empty: it was not, and that was
// reported. A file that another program changed since it was read is not written.
std::wstring SaveForm(const StandIn& standIn, Form& form, Question askYesNo);

// ---- For the programs --------------------------------------------------------------------------

Field NameField(const std::wstring& value);
Field NumberField(const wchar_t* label, const wchar_t* unit, float value, Range range);

float NumberOf(const Field& field);

// The number that the model is saved under: the one that was asked for, else the one that a new
// model gets. 0: there is none, which was reported.
int32_t NumberToSave(const Form& form);

// The fields' own rules; reports the first that is broken and gives its index, else -1.
int CheckFields(const std::vector<Field>& fields);

}  // namespace corvane::siblings
