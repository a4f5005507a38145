#include "shell/database_check.h"

#include <cstdint>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "database/check.h"
#include "database/repair.h"
#include "files/paths.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/edit_history.h"
#include "shell/finding_report.h"
#include "shell/open_database.h"
#include "shell/running_mark.h"
#include "shell/state.h"

namespace corvane {
namespace {

struct Check {
    std::wstring path;
    std::vector<Finding> findings = {};
    CheckResult result = {};
};

// False, and reported, when the file could not be checked to its end.
bool Run(Check& check) {
    SetBusyPointer();
    check.findings.clear();
    const bool isDone = CheckDatabase(
        check.path, [&check](const Finding& finding) { check.findings.push_back(finding); },
        check.result);
    ResetMousePointer();
    return isDone;
}

int32_t CountOf(const CheckResult& result, Severity severity) {
    return static_cast<int32_t>(result.findings.at(static_cast<size_t>(severity)));
}

int32_t LinesOf(const CheckResult& result) {
    return static_cast<int32_t>(result.lines);
}

void NoteResult(const Check& check) {
    const CheckResult& result = check.result;
    if (check.findings.empty()) {
        return ReportNote(kMsgCheckedFine, {check.path, result.models, LinesOf(result)});
    }
    ReportNote(kMsgChecked,
               {check.path, CountOf(result, Severity::kFault), CountOf(result, Severity::kWarning),
                CountOf(result, Severity::kNote)});
}

// ---- What was found ----------------------------------------------------------------------------

std::wstring SummaryOf(const CheckResult& result) {
    const int32_t faults = CountOf(result, Severity::kFault);
    const int32_t warnings = CountOf(result, Severity::kWarning);
    const int32_t notes = CountOf(result, Severity::kNote);
    const int32_t lines = LinesOf(result);
    if (faults + warnings + notes == 0) {
        return FormatMessage(kMsgNothingWrong, {result.models, lines});
    }
    std::wstring summary =
        FormatMessage(kMsgFound, {faults, warnings, notes, result.models, lines});
    if (result.repairs.empty()) return summary;
    const auto repairs = static_cast<int32_t>(result.repairs.size());
    return summary + L'\r' + FormatMessage(kMsgRepairable, {repairs});
}

Report ReportOf(const Check& check) {
    const std::wstring name = FileNameOf(check.path);
    Report report = ReportOfFindings(check.findings);
    report.command = ME_FileCheck;
    report.title = FormatMessage(kMsgCheckOf, {name});
    report.summary = SummaryOf(check.result);
    report.fileName = StripExtension(name) + L" check";
    if (!check.result.repairs.empty()) report.action = L"&Repair...";
    return report;
}

// ---- What can be repaired ----------------------------------------------------------------------

struct RepairTexts {
    const wchar_t* what;
    const wchar_t* becomes;  // null: the repair's own
};
const RepairTexts& TextsOf(RepairKind kind) {
    static constexpr RepairTexts kTexts[] = {{L"Number of a model", nullptr},
                                             {L"Identifier of a model", nullptr},
                                             {L"End of the last line", L"with a line end"},
                                             {L"File that was left over", L"deleted"}};
    return kTexts[static_cast<size_t>(kind)];
}

// As the list has it, while that is of the file that was checked; else its place in the file.
std::wstring NameOfBlock(const Check& check, int32_t block) {
    const OpenDatabase& database = shell.database;
    if (block == 0) return {};
    const auto index = static_cast<size_t>(block - 1);
    const bool isListed = database.stamp == check.result.stamp && index < database.rows.size();
    return isListed ? database.rows[index].name : std::to_wstring(block);
}

ReportRow RowOf(const Check& check, const Repair& repair) {
    const RepairTexts& texts = TextsOf(repair.kind);
    const bool isFile = repair.kind == RepairKind::kLeftOver;
    const std::wstring line = repair.line > 0 ? std::to_wstring(repair.line) : std::wstring();
    std::wstring was = isFile ? FileNameOf(repair.was) : repair.was;
    if (was.empty()) was = L"(nothing)";
    const std::wstring becomes = texts.becomes != nullptr ? texts.becomes : repair.becomes;
    return {{texts.what, line, NameOfBlock(check, repair.block), was, becomes},
            L"Was: " + (isFile ? repair.was : was) + L"\rBecomes: " + becomes};
}

Report ChangesOf(const Check& check) {
    const std::wstring name = FileNameOf(check.path);
    const std::vector<Repair>& repairs = check.result.repairs;
    Report report;
    report.command = ME_FileCheck;
    report.title = FormatMessage(kMsgRepairOf, {name});
    report.summary = FormatMessage(kMsgRepairAsked, {static_cast<int32_t>(repairs.size())});
    report.fileName = StripExtension(name) + L" repair";
    report.columns = {{L"What", L"Identifier of a model"},
                      {L"Line", L"1000000", true},
                      {L"Model", L"Midship section, hold 4"},
                      {L"Was", L"AURORABAY-0004"},
                      {L"Becomes", L"DE76EF52-869F-4017-AB9C"}};
    bool hasFiles = false;
    for (const Repair& repair : repairs) {
        report.rows.push_back(RowOf(check, repair));
        if (repair.kind == RepairKind::kLeftOver) hasFiles = true;
    }
    if (hasFiles) report.summary += L'\r' + GetMessage(kMsgFilesGoForGood);
    report.isQuestion = true;
    report.action = L"&Repair";
    report.act = [](Report&) { return true; };
    return report;
}

// RepairDatabase looks once more: this look spares the user a question.
bool RequireAsChecked(const Check& check) {
    system::FileStamp now;
    if (system::GetFileStamp(check.path, now) == system::kErrorNone && now == check.result.stamp) {
        return true;
    }
    ReportMessage(kMsgChangedSinceCheck, {check.path});
    return false;
}

// How many changes were made; 0 after a failure, which is reported.
int32_t MakeRepairs(const Check& check) {
    const EditName edit(GetMessage(kMsgRepairEdit));
    RepairCounts done{};
    SetBusyPointer();
    RepairDatabase(check.path, check.result.stamp, check.result.repairs, done);
    ResetMousePointer();
    return static_cast<int32_t>(std::accumulate(done.begin(), done.end(), int64_t{0}));
}

// The file as it is after so many changes. Without a new check there is nothing to repair.
void ShowAgain(Check& check, int32_t made, Report& report) {
    Report now;
    if (Run(check)) {
        now = ReportOf(check);
        ReportNote(kMsgRepaired, {made, check.path});
    } else {
        now.summary = FormatMessage(kMsgNotCheckedAgain, {made});
    }
    report.summary = now.summary;
    report.action = now.action;
    report.rows = std::move(now.rows);
}

void RepairAsAsked(Check& check, Report& report) {
    if (!RequireDatabase() || !RequireWritableDatabase() || !RequireAsChecked(check) ||
        !ConfirmEdit()) {
        return;
    }
    Report changes = ChangesOf(check);
    if (!shell.view.showReport(changes)) return;
    const int32_t made = MakeRepairs(check);
    if (made == 0) return;
    RefreshAfterRepair();
    ShowAgain(check, made, report);
}

}  // namespace

void CheckOpenDatabase() {
    if (!RequireDatabase()) return;
    Check check{shell.database.path};
    if (!Run(check)) return;
    NoteResult(check);
    Report report = ReportOf(check);
    report.act = [&check](Report& shown) {
        RepairAsAsked(check, shown);
        return false;
    };
    shell.view.showReport(report);
}

}  // namespace corvane
