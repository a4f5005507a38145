#include "tools/console.h"

#include "bsd/bsd_file.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "report/reporters.h"
#include "shell/open_database.h"
#include "shell/state.h"
#include "text/text.h"
#include "tools/tool_commands.h"

namespace corvane {

ToolState toolState;

namespace {

void ReplaceAll(std::wstring& text, const std::wstring& what, const std::wstring& by) {
    for (size_t at = 0; (at = text.find(what, at)) != std::wstring::npos; at += by.size()) {
        text.replace(at, what.size(), by);
    }
}

// The lines of a box as lines of a terminal, those after the first one moved in.
std::wstring AsLines(std::wstring_view text) {
    std::wstring lines;
    bool isNewLine = false;
    for (const wchar_t character : text) {
        if (character == L'\r' || character == L'\n') {
            isNewLine = !lines.empty();
            continue;
        }
        if (isNewLine) lines += L"\n  ";
        isNewLine = false;
        const bool isControl = (character < L' ' && character != L'\t') || character == 0x7F ||
                               (character >= 0x80 && character < 0xA0);
        lines += isControl ? L'?' : character;
    }
    return lines;
}

bool AnswerByForce(const std::wstring& question) {
    if (toolState.isForced) return true;
    Complain(question + L"\rNothing was changed. --force answers yes.");
    return false;
}

// A line about work in progress ends with "..."; others are notes.
void SetCaption(const std::wstring& text) {
    toolState.caption = text;
    if (!text.empty() && !text.ends_with(L"...")) Complain(text);
}

View ConsoleView() {
    View view;
    view.report.statusCaption = [] { return toolState.caption; };
    view.report.setStatusCaption = SetCaption;
    view.report.showWarningBox = Complain;
    view.report.showPlainBox = Complain;
    view.askYesNo = AnswerByForce;
    view.askIrreversible = AnswerByForce;
    view.askOkCancel = AnswerByForce;
    return view;
}

}  // namespace

void UseConsole(const ToolOutput& output) {
    toolState = ToolState();
    toolState.output = output;
    UseView(ConsoleView());
}

void Print(std::wstring_view text) {
    toolState.printed += text;
}

bool PrintAll() {
    if (toolState.printed.empty() || toolState.output.print(toolState.printed)) return true;
    Complain(L"the output cannot be written");
    return false;
}

void Complain(const std::wstring& text) {
    ++toolState.complaints;
    std::wstring shown = text;
    for (const auto& [path, operand] : toolState.paths) ReplaceAll(shown, path, operand);
    toolState.output.complain(L"corvane: " + AsLines(shown) + L'\n');
}

ExitCode ComplainOfUsage(const Request& request, const std::wstring& fault) {
    Complain(fault);
    toolState.output.complain(UsageLine(request.command));
    const std::wstring name =
        request.command == nullptr ? L"" : L' ' + std::wstring(request.command->name);
    toolState.output.complain(L"'corvane" + name + L" --help' explains it.\n");
    return kExitUsage;
}

bool RequireForce(const std::wstring& what) {
    if (!toolState.isForced) {
        Complain(L"This would " + what + L".\rNothing was changed. --force does it.");
    }
    return toolState.isForced;
}

bool RequirePath(const std::wstring& operand, std::wstring& path) {
    if (IsDeviceName(operand)) {
        Complain(L"'" + operand + L"' is the name of a device, not of a file");
        return false;
    }
    path = system::AbsolutePath(operand);
    if (path.empty()) path = operand;
    toolState.paths.emplace_back(path, operand);
    return true;
}

bool RequireFree(const std::wstring& path, const std::wstring& source) {
    system::FileStatus status;
    system::GetFileStatus(path, status);
    if (!status.exists) return true;
    if (status.isDirectory) {
        Complain(L"'" + path + L"' is a folder, not a file");
        return false;
    }
    if (IsSameFile(path, source)) {
        Complain(L"'" + path + L"' is the file that is read: name another one");
        return false;
    }
    return RequireForce(L"replace '" + path + L"', which is there already");
}

bool OpenForCommand(const std::wstring& operand) {
    std::wstring path;
    BasicShipData bsd;
    if (!RequirePath(operand, path) || !RequireDatabaseFile(path)) return false;
    const int before = toolState.complaints;
    LoadBsdFromDatabase(path, bsd, NoBlock::kIsNoFault);
    AdoptDatabase(path, bsd);
    return ListModelsWithPositions(path, toolState.models) && toolState.complaints == before;
}

}  // namespace corvane
