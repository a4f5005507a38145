// The command that repairs what the check of a database finds and what can be repaired without
// loss.
#include "database/repair.h"

#include <numeric>

#include "database/check.h"
#include "files/paths.h"
#include "report/reporters.h"
#include "shell/exchange_boxes.h"
#include "shell/open_database.h"
#include "shell/running_mark.h"
#include "shell/state.h"
#include "tools/console.h"
#include "tools/editing_command.h"
#include "tools/formats.h"
#include "tools/tool_commands.h"

namespace corvane {
namespace {

void IgnoreFinding(const Finding&) {}

// A line for a change: "Line 373, model in place 4: number '7' becomes '4'".
std::wstring LineOf(const Repair& repair) {
    if (repair.kind == RepairKind::kLeftOver) return L"File '" + repair.was + L"': deleted";
    std::wstring line = L"Line " + std::to_wstring(repair.line);
    if (repair.kind == RepairKind::kLastLineEnd) return line + L": gets its line end";
    const wchar_t* what = repair.kind == RepairKind::kNumber ? L"number" : L"identifier";
    line += L", model in place " + std::to_wstring(repair.block) + L": " + what;
    if (!repair.was.empty()) line += L" '" + repair.was + L'\'';
    return line + L" becomes '" + repair.becomes + L'\'';
}

void PrintRepairs(const std::vector<Repair>& repairs) {
    for (const Repair& repair : repairs) Print(Printable(LineOf(repair)) + L'\n');
}

// Opens a database that may be damaged: neither its ship's data nor its models are read.
bool OpenForRepair(const Request& request, std::wstring& path) {
    if (!RequirePath(request.operands[0], path) || !RequireDatabaseFile(path)) return false;
    AdoptDatabase(path, BasicShipData());
    return request.Has(Option::kDryRun) || (RequireWritableDatabase() && ConfirmEdit());
}

ExitCode ShowChanges(const CheckResult& result) {
    PrintRepairs(result.repairs);
    Print(L"changes: " + std::to_wstring(result.repairs.size()) + L", not made\n");
    return result.repairs.empty() ? kExitDone : kExitFindings;
}

// What was found by a check after the changes.
bool PrintLeft(const std::wstring& path, int64_t changes, CheckResult& result) {
    if (!CheckDatabase(path, IgnoreFinding, result)) return false;
    Print(L"changes: " + std::to_wstring(changes) + L"; left: faults: " +
          std::to_wstring(result.findings[0]) + L", warnings: " +
          std::to_wstring(result.findings[1]) + L", notes: " + std::to_wstring(result.findings[2]) +
          L'\n');
    return true;
}

}  // namespace

ExitCode RunRepair(const Request& request) {
    if (IsLegacyDatabase(request.operands[0])) {
        return ComplainOfUsage(request, L"a DOS database is not repaired");
    }
    std::wstring path;
    CheckResult result;
    if (!OpenForRepair(request, path) || !CheckDatabase(path, IgnoreFinding, result)) {
        return kExitFailed;
    }
    if (request.Has(Option::kDryRun)) return ShowChanges(result);
    const std::vector<Repair> repairs = result.repairs;
    RepairCounts done{};
    const ExitCode made = RunEdit(request, GetMessage(kMsgRepairEdit), [&] {
        return RepairDatabase(path, result.stamp, repairs, done);
    });
    if (made != kExitDone) return made;
    PrintRepairs(repairs);
    const int64_t changes = std::accumulate(done.begin(), done.end(), int64_t{0});
    if (!PrintLeft(path, changes, result)) return kExitFindings;
    const bool isSound = result.findings == std::array<int64_t, kSeverities>{};
    return isSound ? kExitDone : kExitFindings;
}

}  // namespace corvane
