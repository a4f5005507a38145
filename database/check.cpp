#include "database/check.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "bsd/bsd_file.h"
#include "bsd/bsd_records.h"
#include "database/check_blocks.h"
#include "database/left_overs.h"
#include "database/tables.h"
#include "files/read_fault.h"
#include "report/reporters.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

struct FileCheck {
    CountedLines lines;
    const OnFinding& onFinding;
    CheckResult& result;
    StructuralLines structure = FetchStructuralLines();
    std::vector<Repair> numberLines = {};  // by block; of kind kNumber where it can be repaired
    std::vector<int64_t> numbers = {};     // by block; 0 where there is no number
    int64_t numberDue = 1;                 // of the next block
    // Blocks just before it that have the number of an earlier one. They may have a place in the
    // numbers that are due, or not: the next block is right either way.
    int64_t doubles = 0;
    std::unordered_map<int64_t, int64_t> linesOfNumbers = {};
    std::unordered_map<std::string, int64_t> linesOfIdentifiers = {};
    bool hidesBlock = false;           // a marker is damaged somewhere
    std::vector<Finding> ofFile = {};  // that have not been reported yet
};

void Report(FileCheck& check, const Finding& finding) {
    ++check.result.findings[static_cast<size_t>(SeverityOf(finding))];
    check.onFinding(finding);
}

void AddOfFile(FileCheck& check, CheckRule rule, int64_t line,
               std::vector<std::wstring> values = {}) {
    Finding& finding = check.ofFile.emplace_back();
    finding.rule = rule;
    finding.line = line;
    finding.values = std::move(values);
}

void ReportThoseOfFile(FileCheck& check) {
    std::ranges::stable_sort(check.ofFile, {}, &Finding::line);
    for (const Finding& finding : check.ofFile) Report(check, finding);
    check.ofFile.clear();
}

// ---- Head of the file --------------------------------------------------------------------------

// The next line before the first model that is not a comment.
bool ReadHeadLine(FileCheck& check, std::string_view& line) {
    do {
        if (!ReadLine(check.lines, line)) return false;
    } while (IsCommentLine(line));
    if (line != check.structure.modelMarker) return true;
    StepBack(check.lines);
    return false;
}

void CheckDimensions(FileCheck& check, const BasicShipData& bsd, int64_t line) {
    constexpr int kShipTypes = 21;
    if (bsd.ShipType() < 1 || bsd.ShipType() > kShipTypes) {
        AddOfFile(check, CheckRule::kShipType, line, {std::to_wstring(bsd.ShipType())});
    }
    for (const int i : {1, 2, 3, 9}) {  // IsBsdDefined
        if (bsd.MainData(i) > 0) continue;
        AddOfFile(check, CheckRule::kShipUndefined, line,
                  {std::to_wstring(i), GeneralText(bsd.MainData(i))});
    }
}

void CheckFrames(FileCheck& check, const BasicShipData& bsd, int64_t line) {
    constexpr int kMostZones = 40;
    if (bsd.FrameZoneCount < 0 || bsd.FrameZoneCount > kMostZones) {
        AddOfFile(check, CheckRule::kFrameZoneCount, line, {std::to_wstring(bsd.FrameZoneCount)});
        return;
    }
    for (int zone = 1; zone <= bsd.FrameZoneCount; ++zone) {
        const int16_t end = bsd.FrameNumbers(zone);
        const int16_t begin = bsd.FrameNumbers(zone - 1);
        if (end > begin) continue;
        AddOfFile(check, CheckRule::kFrameOrder, line,
                  {std::to_wstring(zone), std::to_wstring(end), std::to_wstring(begin)});
    }
}

// The header line has been read.
void CheckShipRecord(FileCheck& check) {
    const int64_t header = check.lines.number;
    std::string_view line;
    if (ReadHeadLine(check, line)) StepBack(check.lines);
    const int64_t before = check.lines.number;
    BasicShipData bsd;
    BsdFaults faults;
    const int numbers = ReadBasicShipData(check.lines.reader, bsd, &faults);
    const double version = LeadingNumber(bsd.FormatVersion.Whole());
    if (!(version >= 1 && version < 6)) {
        AddOfFile(check, CheckRule::kShipVersion, before + 1, {bsd.FormatVersion.Trimmed()});
    }
    for (const BsdFaults::Item& item : faults.items) {
        AddOfFile(check, CheckRule::kShipItem, before + item.line, {ShownText(item.text)});
    }
    check.lines.number = before + faults.lines;
    // A word that is no number is reported already.
    const auto found = numbers + static_cast<int>(faults.items.size());
    if (found < faults.numbers) {
        AddOfFile(check, CheckRule::kShipNumbers, header,
                  {std::to_wstring(numbers), std::to_wstring(faults.numbers)});
    }
    if (numbers < faults.numbers) return;
    CheckDimensions(check, bsd, header);
    CheckFrames(check, bsd, header);
}

// What is between the ship record and the first model.
void CheckLinesAfterShip(FileCheck& check) {
    int64_t first = 0;
    int64_t count = 0;
    for (std::string_view line; ReadHeadLine(check, line); ++count) {
        if (count == 0) first = check.lines.number;
    }
    if (count == 0) return;
    AddOfFile(check, CheckRule::kLinesAfterShip, first, {std::to_wstring(count)});
}

void CheckSignature(FileCheck& check) {
    const std::wstring expected =
        system::WideFromAnsi(Trim(std::string_view(check.structure.signature)));
    std::string_view line;
    if (!ReadHeadLine(check, line)) {
        AddOfFile(check, CheckRule::kNoSignature, 1, {L"", expected});
        return;
    }
    if (system::WideFromAnsi(UpperCase(Trim(line))) == expected) return;
    AddOfFile(check, CheckRule::kNoSignature, check.lines.number, {ShownText(line), expected});
    if (line == check.structure.headLabel || line == kBsdHeaderLine) StepBack(check.lines);
}

// From the signature to the header line of the ship record, which has then been read; false where
// it is missing.
bool FindShipRecord(FileCheck& check, bool& hasLabel) {
    UnknownLines unknown;
    bool hasShip = false;
    for (std::string_view line; !hasShip && ReadHeadLine(check, line);) {
        hasShip = line == kBsdHeaderLine;
        const bool isLabel = line == check.structure.headLabel;
        hasLabel = hasLabel || isLabel;
        if (!hasShip && !isLabel) NoteUnknown(unknown, check.lines, line);
    }
    if (unknown.count > 0) {
        AddOfFile(check, CheckRule::kHeadLineUnknown, unknown.first,
                  {std::to_wstring(unknown.count), unknown.text});
    }
    return hasShip;
}

void CheckFileHead(FileCheck& check) {
    CheckSignature(check);
    bool hasLabel = false;
    const bool hasShip = FindShipRecord(check, hasLabel);
    const int64_t last = check.lines.number;
    if (!hasLabel) {
        AddOfFile(check, CheckRule::kNoHeadLabel, last,
                  {system::WideFromAnsi(check.structure.headLabel)});
    }
    if (hasShip) {
        CheckShipRecord(check);
        CheckLinesAfterShip(check);
    } else {
        AddOfFile(check, CheckRule::kNoShipRecord, last, {system::WideFromAnsi(kBsdHeaderLine)});
    }
}

// ---- Models ------------------------------------------------------------------------------------

void CheckNumber(FileCheck& check, BlockFindings& found, const CheckedBlock& block) {
    const int64_t due = check.numberDue;
    check.numbers.push_back(block.number);
    check.numberLines.push_back(block.numberLine);
    if (!block.hasNumberPlace) check.numberLines.back().begin = -1;
    const int64_t doubles = std::exchange(check.doubles, 0);
    check.numberDue = (block.number != 0 ? block.number : int64_t{check.result.models}) + 1;
    if (block.number == 0) return;
    const std::wstring number = std::to_wstring(block.number);
    const auto [first, isNew] = check.linesOfNumbers.emplace(block.number, block.firstLine);
    if (!isNew) {
        check.doubles = doubles + 1;
        check.numberDue = due + 1;
        Add(found, CheckRule::kNumberDouble, block.numberLine.line,
            {number, std::to_wstring(first->second)});
    } else if (block.number < due - doubles || block.number > due) {
        Add(found, CheckRule::kNumberOrder, block.numberLine.line, {number, std::to_wstring(due)});
    }
}

void CheckIdentifier(FileCheck& check, BlockFindings& found, CheckedBlock& block) {
    Repair& line = block.identifierLine;
    if (line.line == 0) return;
    if (block.identifier.empty()) {
        Add(found, CheckRule::kNoIdentifier, line.line, {});
    } else {
        const auto [first, isNew] =
            check.linesOfIdentifiers.emplace(block.identifier, block.firstLine);
        if (isNew) return;
        Add(found, CheckRule::kIdentifierDouble, line.line,
            {line.was, std::to_wstring(first->second)});
    }
    if (!block.hasIdentifierLine) return;
    line.becomes = system::WideFromAnsi(NewIdentifier());
    check.result.repairs.push_back(line);
}

// The marker has been read.
void CheckModel(FileCheck& check) {
    BlockFindings found;
    CheckedBlock block;
    found.model.block = ++check.result.models;
    CheckBlock(check.lines, check.structure, found, block);
    if (check.lines.reader.error != system::kErrorNone) return;
    CheckNumber(check, found, block);
    CheckIdentifier(check, found, block);
    check.hidesBlock = check.hidesBlock || block.hidesBlock;
    for (const Finding& finding : SortedFindings(found)) Report(check, finding);
}

// ---- End of the file ---------------------------------------------------------------------------

// All lines have been read.
void CheckLastLine(FileCheck& check) {
    TextReader& reader = check.lines.reader;
    check.result.lines = check.lines.number;
    if (check.result.stamp.size == 0 || reader.error != system::kErrorNone) return;
    SeekLine(reader, check.result.stamp.size - 1);
    std::string_view line;
    if (!ReadLine(reader, line) || reader.buffer[reader.next - 1] == '\n') return;
    AddOfFile(check, CheckRule::kNoLastLineEnd, check.lines.number);
    Repair end;
    end.kind = RepairKind::kLastLineEnd;
    end.line = check.lines.number;
    end.block = check.result.models;
    end.begin = end.end = check.result.stamp.size;
    check.result.repairs.push_back(end);
}

void CheckLeftOvers(FileCheck& check, const std::wstring& path) {
    for (const LeftOver& file : FindLeftOvers(path)) {
        AddOfFile(check, file.isPart ? CheckRule::kLeftOverCopy : CheckRule::kLeftOverText, 0,
                  {file.path});
        if (!file.isPart) continue;
        Repair repair;
        repair.kind = RepairKind::kLeftOver;
        repair.was = file.path;
        check.result.repairs.push_back(repair);
    }
}

// Every model gets its place as its number.
void PlanNumbers(FileCheck& check) {
    if (check.hidesBlock) return;
    for (size_t i = 0; i < check.numbers.size(); ++i) {
        Repair& line = check.numberLines[i];
        const auto place = static_cast<int64_t>(i) + 1;
        if (line.begin < 0 || check.numbers[i] == place) continue;
        line.becomes = std::to_wstring(place);
        check.result.repairs.push_back(std::move(line));
    }
}

// ---- All ---------------------------------------------------------------------------------------

void CheckLines(FileCheck& check) {
    CheckFileHead(check);
    ReportThoseOfFile(check);
    for (std::string_view line; ReadLine(check.lines, line);) CheckModel(check);
    CheckLastLine(check);
    ReportThoseOfFile(check);
    if (check.result.models == 0) AddOfFile(check, CheckRule::kNoModels, 0);
}

bool OpenChecked(TextReader& reader, const std::wstring& path) {
    if (OpenText(reader, path)) return true;
    if (reader.error == system::kErrorFileNotFound || reader.error == system::kErrorPathNotFound) {
        ReportMessage(kMsgDatabaseMissing, {path});
    } else {
        ReportReadFault(reader, path);
    }
    return false;
}

std::wstring SeverityName(Severity severity) {
    constexpr std::array<const wchar_t*, kSeverities> kNames = {L"fault", L"warning", L"note"};
    return kNames[static_cast<size_t>(severity)];
}

// The number of the line that begins at `offset`.
int64_t LineAt(TextReader& reader, int64_t offset) {
    SeekLine(reader, 0);
    CountedLines lines{reader};
    std::string_view line;
    while (LinePosition(reader) < offset && ReadLine(lines, line)) continue;
    return lines.number + 1;
}

}  // namespace

Severity SeverityOf(const Finding& finding) {
    return FactsOf(finding.rule).severity;
}

std::wstring TextOf(const Finding& finding) {
    const std::wstring_view text = FactsOf(finding.rule).text;
    std::wstring result;
    auto value = finding.values.begin();
    for (const wchar_t c : text) {
        if (c == L'¤' && value != finding.values.end()) {
            result += *value++;
        } else {
            result += c;
        }
    }
    return result;
}

std::wstring ReportLineOf(const Finding& finding) {
    std::wstring line =
        finding.line > 0 ? L"Line " + std::to_wstring(finding.line) : std::wstring(L"File");
    line += L", " + SeverityName(SeverityOf(finding));
    if (finding.isInModel) {
        const std::wstring number =
            finding.number > 0 ? std::to_wstring(finding.number) : L"without a number";
        line +=
            L", model " + number + L" '" + finding.name + L"' (" + KindName(finding.kind) + L')';
    }
    return line + L": " + TextOf(finding);
}

bool CheckDatabase(const std::wstring& path, const OnFinding& onFinding, CheckResult& result) {
    result = {};
    TextReader reader;
    ReportStatus(kMsgChecking, {path});
    if (!OpenChecked(reader, path)) return false;
    system::GetFileStamp(reader.file, result.stamp);
    Progress progress(result.stamp.size);
    reader.progress = &progress;
    FileCheck check{{reader}, onFinding, result};
    CheckLines(check);
    reader.progress = nullptr;
    if (ReportReadFault(reader, path)) return false;
    system::FileStamp after;
    if (system::GetFileStamp(path, after) != system::kErrorNone || after != result.stamp) {
        ReportMessage(kMsgChangedInCheck, {path});
        return false;
    }
    PlanNumbers(check);
    CheckLeftOvers(check, path);
    ReportThoseOfFile(check);
    std::ranges::stable_sort(result.repairs, [](const Repair& a, const Repair& b) {
        return a.line != 0 && (b.line == 0 || a.line < b.line);
    });
    ShowStatus(L"");
    return true;
}

bool FindLossesOfCopy(const std::wstring& path, const BlockPlace& place,
                      std::vector<Finding>& losses) {
    losses.clear();
    TextReader reader;
    std::string keyword;
    if (!RequireDatabaseText(reader, path) || !RequireBlock(reader, path, place, keyword)) {
        return false;
    }
    BlockFindings found;
    CheckedBlock block;
    int64_t marker = 0;
    CheckBlockAt(reader, found, block, marker);
    if (ReportReadFault(reader, path)) return false;
    if (KindOfKeyword(keyword) == ModelKind::kTorsion || IsCarriedOver(found, block)) return true;
    for (Finding& finding : SortedFindings(found)) {
        if (FactsOf(finding.rule).isLostByCopy) losses.push_back(std::move(finding));
    }
    if (losses.empty()) return true;
    const int64_t before = LineAt(reader, marker) - 1;
    for (Finding& finding : losses) finding.line += before;
    return !ReportReadFault(reader, path);
}

}  // namespace corvane
