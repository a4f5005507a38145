#include "tools/arguments.h"

#include <algorithm>

#include "tools/tool_commands.h"

namespace corvane {
namespace {

using Arguments = std::span<const std::wstring>;

constexpr OptionFacts kOptions[] = {
    {Option::kFormat, L"--format", L"", L"KIND", L"text json ", L"text (usual) or json"},
    {Option::kTableFormat, L"--format", L"", L"KIND", L"text csv json ",
     L"text (usual), csv or json"},
    {Option::kTo, L"--to", L"", L"FILE", L"", L"the file that is written"},
    {Option::kAll, L"--all", L"", L"", L"", L"all that there are, instead of names or numbers"},
    {Option::kKind, L"--kind", L"", L"KIND", L"svg dxf png ",
     L"svg, dxf or png: the kind of the files"},
    {Option::kForce, L"--force", L"-y", L"", L"",
     L"answers yes where the program would ask: replaces, deletes"},
    {Option::kNoHistory, L"--no-history", L"", L"", L"",
     L"keeps no earlier version for Undo; the backup is kept"},
    {Option::kDryRun, L"--dry-run", L"", L"", L"", L"shows the changes, and makes none"},
};
static_assert(std::size(kOptions) == kOptionCount);

Request Fault(Request request, std::wstring fault) {
    request.kind = RequestKind::kFault;
    request.fault = std::move(fault);
    return request;
}

bool IsHelp(std::wstring_view argument) {
    return argument == L"--help" || argument == L"-h";
}

// The command whose name the arguments begin with, and how many of them its name has; 0: none.
size_t FindCommand(Arguments arguments, const ToolCommand*& command) {
    for (const ToolCommand& known : ToolCommands()) {
        std::wstring name;
        for (size_t words = 1; words <= std::min<size_t>(2, arguments.size()); ++words) {
            name += (words == 1 ? L"" : L" ") + arguments[words - 1];
            if (name != known.name) continue;
            command = &known;
            return words;
        }
    }
    return 0;
}

bool IsFirstOfTwo(std::wstring_view word) {
    return std::ranges::any_of(ToolCommands(), [word](const ToolCommand& command) {
        return command.name.starts_with(std::wstring(word) + L' ');
    });
}

std::wstring WhyNoCommand(Arguments arguments) {
    if (arguments.empty()) return L"a command is missing";
    const std::wstring& word = arguments[0];
    if (word.starts_with(L'-')) return L"unknown option '" + word + L"' before the command";
    if (!IsFirstOfTwo(word)) return L"unknown command '" + word + L"'";
    return arguments.size() == 1 ? L"'" + word + L"' needs a second word"
                                 : L"unknown command '" + word + L" " + arguments[1] + L"'";
}

// Among the options of the command; null: it does not have that one.
const OptionFacts* FindOption(const ToolCommand& command, std::wstring_view name) {
    for (const Option option : command.options) {
        const OptionFacts& facts = kOptions[static_cast<size_t>(option)];
        if (name == facts.name || (!facts.shortName.empty() && name == facts.shortName)) {
            return &facts;
        }
    }
    return nullptr;
}

// Why the value of an option cannot be; empty when it can.
std::wstring WhyNoValue(const OptionFacts& option, const std::wstring& value) {
    const std::wstring name(option.name);
    if (value.empty()) return L"'" + name + L"' needs a value";
    const bool isWord = value.find(L' ') == std::wstring::npos;
    if (option.choices.empty() ||
        (isWord &&
         (L' ' + std::wstring(option.choices)).find(L' ' + value + L' ') != std::wstring::npos)) {
        return {};
    }
    std::wstring words(option.choices.substr(0, option.choices.size() - 1));
    std::ranges::replace(words, L' ', L'|');
    return L"'" + name + L" " + value + L"': it must be " + words;
}

// Reads the option at `index`, which becomes that of its last argument. Why not; else empty.
std::wstring ReadOption(Arguments arguments, size_t& index, Request& request) {
    const std::wstring& argument = arguments[index];
    const size_t equals = argument.find(L'=');
    const std::wstring name = argument.substr(0, equals);
    const OptionFacts* option = FindOption(*request.command, name);
    if (option == nullptr) return L"unknown option '" + name + L"'";
    std::wstring& value = request.values.at(static_cast<size_t>(option->option));
    if (option->value.empty()) {
        if (equals != std::wstring::npos) return L"'" + name + L"' has no value";
        value = option->name;
        return {};
    }
    if (!value.empty()) return L"'" + name + L"' is given twice";
    if (equals != std::wstring::npos) {
        value = argument.substr(equals + 1);
    } else if (index + 1 < arguments.size()) {
        value = arguments[++index];
    }
    return WhyNoValue(*option, value);
}

std::wstring WhyWrongCount(const Request& request) {
    const size_t count = request.operands.size();
    if (count < request.command->leastOperands) return L"an argument is missing";
    if (count > request.command->mostOperands) {
        return L"too many arguments: '" + request.operands[request.command->mostOperands] + L"'";
    }
    const bool isEmpty =
        std::ranges::any_of(request.operands, [](const auto& operand) { return operand.empty(); });
    return isEmpty ? L"an argument is empty" : L"";
}

// What follows the command's name.
Request ReadRest(Arguments arguments, Request request) {
    bool areOperands = false;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::wstring& argument = arguments[i];
        if (areOperands || argument.size() < 2 || argument[0] != L'-') {
            request.operands.push_back(argument);
        } else if (argument == L"--") {
            areOperands = true;
        } else if (IsHelp(argument)) {
            request.kind = RequestKind::kHelp;
            return request;
        } else {
            const std::wstring why = ReadOption(arguments, i, request);
            if (!why.empty()) return Fault(std::move(request), why);
        }
    }
    const std::wstring why = WhyWrongCount(request);
    return why.empty() ? request : Fault(std::move(request), why);
}

}  // namespace

std::span<const OptionFacts> OptionTable() {
    return kOptions;
}

Request ReadRequest(Arguments arguments) {
    Request request;
    if (arguments.size() == 1 && arguments[0] == L"--version") {
        request.kind = RequestKind::kVersion;
        return request;
    }
    if (!arguments.empty() && IsHelp(arguments[0])) {
        request.kind = RequestKind::kHelp;
        arguments = arguments.subspan(1);
        if (arguments.empty()) return request;
        const size_t words = FindCommand(arguments, request.command);
        if (words == arguments.size()) return request;
        return Fault(request, words == 0 ? WhyNoCommand(arguments)
                                         : L"too many arguments: '" + arguments[words] + L"'");
    }
    const size_t words = FindCommand(arguments, request.command);
    if (words == 0) return Fault(request, WhyNoCommand(arguments));
    return ReadRest(arguments.subspan(words), std::move(request));
}

}  // namespace corvane
