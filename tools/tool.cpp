#include "tools/tool.h"

#include <algorithm>
#include <exception>

#include "platform/ztutil32.h"
#include "shell/library_checks.h"
#include "shell/state.h"
#include "text/version.h"
#include "tools/tool_commands.h"

namespace corvane {
namespace {

// Without the catalogue there is no text that could say so.
bool RequireLibraries() {
    for (const LibraryCheck& check : LibraryChecks()) {
        if (check.function->Resolve()) continue;
        const std::string name = check.function->fileName;
        Complain(L"the library '" + std::wstring(name.begin(), name.end()) +
                 L"' is missing, or is not that of Corvane.\rIt belongs beside this program.");
        return false;
    }
    return CheckLibraryVersions();
}

// A comma as the decimal symbol would have the libraries read other numbers than the files have.
bool RequireRegionalSettings() {
    const bool isFine = IsRegionalOK() != 0;
    if (!isFine) {
        Complain(
            L"the decimal symbol of your regional settings is not \".\".\r"
            L"Start Corvane once: it offers to change that.");
    }
    return isFine;
}

ExitCode RunCommand(const Request& request) {
    if (!RequireLibraries() || !RequireRegionalSettings()) return kExitFailed;
    toolState.isForced = request.Has(Option::kForce);
    const ExitCode code = request.command->run(request);
    return code == kExitDone && toolState.complaints > 0 ? kExitFindings : code;
}

ExitCode Run(const Request& request) {
    switch (request.kind) {
        case RequestKind::kHelp:
            Print(HelpText(request.command));
            return kExitDone;
        case RequestKind::kVersion:
            Print(L"corvane " + VersionText(kProgramVersion, false) + L'\n');
            return kExitDone;
        case RequestKind::kFault:
            return ComplainOfUsage(request, request.fault);
        case RequestKind::kCommand:
            break;
    }
    return RunCommand(request);
}

}  // namespace

ExitCode RunRequest(const Request& request, const ToolOutput& output) {
    UseConsole(output);
    try {
        const ExitCode code = Run(request);
        return PrintAll() ? code : kExitFailed;
    } catch (const std::exception&) {
        output.complain(L"corvane: there is not enough memory\n");
        return kExitFailed;
    }
}

ExitCode RunTool(std::span<const std::wstring> arguments, const ToolOutput& output) {
    return RunRequest(ReadRequest(arguments), output);
}

}  // namespace corvane
