// The kinds of models in a database. All that differs from kind to kind is one table, a row for
// each kind: whoever needs a kind's keyword, icon, caption, program or procedure looks it up here,
// and a new kind is a new row.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

// The numbers are those by which the shell creates a model of a kind.
enum class ModelKind : int16_t { kSection = 0, kBulkhead = 1, kTorsion = 2 };

inline constexpr std::string_view kSectionKeyword = "SECTION";
inline constexpr std::string_view kBulkheadKeyword = "BHA";
inline constexpr std::string_view kTorsionKeyword = "TORSION";

// Layout versions, written into block heads and stamps. A torsion model has that of a section.
inline constexpr float kSectionFormatVersion = 2.002f;
inline constexpr float kBulkheadFormatVersion = 0.443f;

// A program of the suite by its file's name, without a folder: a fixed name, or else the
// catalogue's message of this number.
struct ProgramFile {
    const wchar_t* fixedName = nullptr;
    int32_t message = 0;
};
std::wstring ProgramFileName(const ProgramFile& program);

// Of database/editing.h, which has the procedures of the table.
struct ModelSource;
struct TextWriter;
// Of database/column_names.h.
struct BlockNames;
// Of database/describing.h.
struct ModelDescription;
struct TextReader;

struct KindFacts {
    ModelKind kind;
    std::string_view keyword;       // the line after the number in the block's head
    const wchar_t* name;            // in the model list
    int icon;                       // from 1: which picture of IML_Small
    const wchar_t* menuCaption;     // of the menu for a model of this kind
    const wchar_t* exchangeSuffix;  // after the model's name in the lists of export and import
    float formatVersion;
    bool hasPosition;          // the line after the name gives x
    int identifierLine;        // which line after the name has the identifier; 0: none
    ProgramFile inputProgram;  // creates and edits a model
    ProgramFile ruleProgram;   // checks it
    ProgramFile csrProgram;    // checks it under the rule set CSR
    bool isCopiedWithBackup;   // whatever is asked for
    // Writes the block of a copy of a model (database/editing.h).
    bool (*writeCopy)(TextWriter& writer, const ModelSource& source, const std::wstring* newName,
                      int32_t newNumber);
    // What a model holds (database/describing.h).
    void (*describe)(TextReader& reader, ModelDescription& description);
    // What the columns of its lines are called (database/column_names.h).
    BlockNames (*names)();
};

// The table, in the order of the kinds' numbers.
std::span<const KindFacts> Kinds();
const KindFacts& FactsOf(ModelKind kind);

// The kind of a keyword line, compared exactly; any unknown keyword is a section.
ModelKind KindOfKeyword(std::string_view keyword);
std::string_view KeywordOfKind(ModelKind kind);

// "Section", "Bulkhead", "Torsion".
std::wstring KindName(ModelKind kind);

}  // namespace corvane
