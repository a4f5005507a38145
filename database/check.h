// Checks a model database from its first line to its last, and says what is wrong, in which line,
// what it means, and what can be done. docs/checking.md has the rules; their texts are one table
// (check_rules.cpp).
//
// The file is read once, by the line reader and with the lines that the listing uses. The rows of
// tables are judged by the declarations that read and write them (database/check_rows.h). Memory
// grows with the number of models, and with one model's rows, not with the size of the file.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "database/model_kind.h"
#include "database/scanning.h"
#include "platform/system.h"

namespace corvane {

// kFault: data are lost to the reader, or commands refuse the model. kWarning: what is read may not
// be what was meant. kNote: nothing is lost.
enum class Severity { kFault, kWarning, kNote };
inline constexpr int kSeverities = 3;

enum class CheckRule {
    // The file
    kNoSignature,
    kHeadLineUnknown,
    kNoHeadLabel,
    kLineTooLong,
    kNoLastLineEnd,
    kNoModels,
    kLeftOverCopy,
    kLeftOverText,
    // The ship record
    kNoShipRecord,
    kShipVersion,
    kShipItem,
    kShipNumbers,
    kShipType,
    kShipUndefined,
    kFrameZoneCount,
    kFrameOrder,
    kLinesAfterShip,
    // Heads of blocks
    kNoNumberLine,
    kNumberLost,
    kNumberUnreadable,
    kNumberDouble,
    kNumberOrder,
    kNumberText,
    kNoKind,
    kKindUnknown,
    kNoVersion,
    kVersionUnreadable,
    kVersionNewer,
    kVersionOlder,
    kBlockHeadLine,
    kNoNameLabel,
    kNoName,
    kMarkerDamaged,
    kHeadInside,
    kControlCharacter,
    kNoIdentifier,
    kIdentifierDouble,
    // Tables
    kTableUnknown,
    kTorsionTableUnknown,
    kTableTwice,
    kTableMissing,
    kLinesOutside,
    kTableSize,
    kNodeListLine,
    // Rows
    kRowShort,
    kRowLong,
    kItemCut,
    kNotNumber,
    kNotWhole,
    kNumberTooLarge,
    kOutlineOpen,
    kCountDiffers,
    // References and codes
    kNoOwner,
    kNoReference,
    kNoSuchBracket,
    kNodeKind,
    kNodeShape,
    kStiffenerSide,
    kProfileType,
    kFewNodes,
    // Of a rule that one model breaks often
    kFurther,
    kCount
};

// A row of the table of rules. A "¤" of `text` is the place of the next value of a finding.
struct RuleFacts {
    CheckRule rule;
    Severity severity;
    const wchar_t* title;    // a few words, the same for every finding
    const wchar_t* text;     // what is wrong
    const wchar_t* meaning;  // what it means for the user
    const wchar_t* remedy;   // what can be done
    bool isRepaired;         // RepairDatabase can correct it without loss
    bool isLostByCopy;       // a copy that is read and written again leaves something out
};
const RuleFacts& FactsOf(CheckRule rule);

struct Finding {
    CheckRule rule = CheckRule::kCount;
    int64_t line = 0;        // from 1; 0: of the file as a whole
    bool isInModel = false;  // the four fields after this one say in which
    int32_t block = 0;       // its place in the file, from 1
    int32_t number = 0;      // as its block has it; 0 where it has none
    std::wstring name;       // trimmed
    ModelKind kind = ModelKind::kSection;
    std::vector<std::wstring> values;  // of the rule's text, in order
};
Severity SeverityOf(const Finding& finding);
// What is wrong, with the values.
std::wstring TextOf(const Finding& finding);
// A line of a report: where, how severe, which model, what is wrong. Without a line end.
//     Line 97, fault, model 2 'Frame 20' (Section): The line of NODES has too few ...
std::wstring ReportLineOf(const Finding& finding);

// ---- What can be repaired without loss ---------------------------------------------------------

enum class RepairKind { kNumber, kIdentifier, kLastLineEnd, kLeftOver };

// One change that database/repair.h can make. A line is replaced as a whole, or put in where
// `begin` equals `end`.
struct Repair {
    RepairKind kind = RepairKind::kNumber;
    int64_t line = 0;      // from 1; 0 of a file that was left over
    int32_t block = 0;     // place of its model in the file, from 1; 0: none
    std::wstring was;      // trimmed; of a file that was left over, its path
    std::wstring becomes;  // empty: it goes, or gets its end
    int64_t begin = 0;     // of the line, in bytes
    int64_t end = 0;
};

struct CheckResult {
    system::FileStamp stamp;  // of the file that was checked
    int32_t models = 0;
    int64_t lines = 0;
    std::array<int64_t, kSeverities> findings{};  // by severity
    // In the order of the file. Numbers are left as they are where a marker is damaged: the block
    // that it opened may have one of them.
    std::vector<Repair> repairs;
};

using OnFinding = std::function<void(const Finding&)>;

// Checks the file and the folder that it is in. Findings come in the order of the file, of one
// model by lines; those of the file as a whole come last. Of one rule a model has at most
// kMostOfARule findings, and one of the rule kFurther that says how many more there are.
//
// False, and reported: the file is not there (3580), cannot be read to its end (3509), was changed
// meanwhile (3960), or the user has cancelled. Findings may have come before.
inline constexpr int kMostOfARule = 10;
bool CheckDatabase(const std::wstring& path, const OnFinding& onFinding, CheckResult& result);

// What a copy of one model leaves out, in the same database or another one. Sections and bulkhead
// arrangements are read and written again; one that would lose something by that is carried over
// byte by byte (database/carrying.h), unless its head is damaged: of such a model these are the
// tables that this program does not know, the rows and values that belong to nothing, and a newer
// layout. Empty of a torsion model. False when the model cannot be read, which is reported like a
// failure of reading it (3580, 3509, 1011).
bool FindLossesOfCopy(const std::wstring& path, const BlockPlace& place,
                      std::vector<Finding>& losses);

}  // namespace corvane
