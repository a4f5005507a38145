// The command convert: a DOS database to a model database, and back.
#include "files/paths.h"
#include "report/reporters.h"
#include "shell/exchange_boxes.h"
#include "shell/legacy_conversion.h"
#include "shell/new_file.h"
#include "shell/state.h"
#include "tools/console.h"
#include "tools/editing_command.h"
#include "tools/tool_commands.h"

namespace corvane {
namespace {

ExitCode ConvertFromLegacy(const Request& request) {
    std::wstring source;
    std::wstring target;
    if (!RequirePath(request.operands[0], source) || !RequirePath(request.operands[1], target) ||
        !RequireFree(target, source)) {
        return kExitFailed;
    }
    KeepHistory(request);
    return ConvertLegacyDatabase(source, target) ? kExitDone : kExitFailed;
}

ExitCode ConvertToLegacy(const Request& request) {
    std::wstring target;
    if (!OpenForCommand(request.operands[0]) || !RequirePath(request.operands[1], target) ||
        !RequireFree(target, shell.database.path)) {
        return kExitFailed;
    }
    ExchangeReport report;
    if (!SaveAsLegacyDatabase(target, report)) return kExitFailed;
    ReportLosses(target, report);
    return kExitDone;
}

}  // namespace

ExitCode RunConvert(const Request& request) {
    const bool isFromLegacy = IsLegacyDatabase(request.operands[0]);
    if (isFromLegacy == IsLegacyDatabase(request.operands[1])) {
        return ComplainOfUsage(request, L"one of SOURCE and TARGET must end in .vel");
    }
    return isFromLegacy ? ConvertFromLegacy(request) : ConvertToLegacy(request);
}

}  // namespace corvane
