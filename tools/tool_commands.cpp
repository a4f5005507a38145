#include "tools/tool_commands.h"

#include <algorithm>

#include "text/version.h"

namespace corvane {
namespace {

constexpr Option kListOptions[] = {Option::kTableFormat};
constexpr Option kShowOptions[] = {Option::kFormat};
constexpr Option kExtractOptions[] = {Option::kTo, Option::kForce, Option::kNoHistory};
constexpr Option kAppendOptions[] = {Option::kAll, Option::kForce, Option::kNoHistory};
constexpr Option kEditOptions[] = {Option::kForce, Option::kNoHistory};
constexpr Option kRepairOptions[] = {Option::kDryRun, Option::kForce, Option::kNoHistory};
constexpr Option kDrawOptions[] = {Option::kAll, Option::kKind, Option::kForce};

constexpr ToolCommand kCommands[] = {
    {L"list", L"lists the models of a database", L"DATABASE [--format text|csv|json]",
     L"Number, name, kind, position in m and nearest frame of each model, in the order of the\n"
     L"file. A \"!\" marks a number that does not lead to one model alone. Of a DOS database\n"
     L"its sections.",
     kListOptions, 1, 1, RunList},
    {L"show", L"shows what a model is", L"DATABASE MODEL [--format text|json]",
     L"Who wrote it and when, how large it is, and what is in it.", kShowOptions, 2, 2, RunShow},
    {L"check", L"checks a database from its first line to its last",
     L"DATABASE [--format text|json]",
     L"What is wrong, with the lines, what it means and what can be done. Nothing is changed.\n"
     L"The exit status is 1 when anything was found.",
     kShowOptions, 1, 1, RunCheck},
    {L"repair", L"repairs what can be repaired without loss",
     L"DATABASE [--dry-run] [--force] [--no-history]",
     L"Numbers and identifiers of models, the end of the last line, and files that were left by\n"
     L"an edit. Prints each change. The old database is kept as its backup (.bak). The exit "
     L"status\n"
     L"is 1 when something is left that 'check' names, with --dry-run when there is something to\n"
     L"change.",
     kRepairOptions, 1, 1, RunRepair},
    {L"compare", L"compares two databases, or two versions of one",
     L"BEFORE NOW [--format text|json]",
     L"Models that were added, removed, renamed, changed or got another number, and each value\n"
     L"that differs: where it is, what it was before and what it is now. Who wrote a model,\n"
     L"comments and the form of numbers do not count. The exit status is 1 when anything differs.",
     kShowOptions, 2, 2, RunCompare},
    {L"extract", L"writes models into a new database",
     L"DATABASE MODEL... --to FILE [--force] [--no-history]",
     L"The new database has the ship's data and the models, byte for byte, in the order of the\n"
     L"database and numbered from 1.",
     kExtractOptions, 2, kAnyNumber, RunExtract},
    {L"append", L"adds models of another database",
     L"DATABASE SOURCE MODEL...|--all [--force] [--no-history]",
     L"All of them or none; they get new numbers, sections and bulkhead arrangements new\n"
     L"identifiers, too. SOURCE may be a DOS database. Prints the new numbers.",
     kAppendOptions, 2, kAnyNumber, RunAppend},
    {L"delete", L"deletes models", L"DATABASE MODEL... --force [--no-history]",
     L"The numbers of the models after them become smaller. The old database is kept as its\n"
     L"backup (.bak).",
     kEditOptions, 2, kAnyNumber, RunDelete},
    {L"renumber", L"numbers the models from 1 in the order of the file",
     L"DATABASE [--force] [--no-history]",
     L"Prints what has changed. The old database is kept as its backup (.bak).", kEditOptions, 1, 1,
     RunRenumber},
    {L"bsd show", L"shows the Basic Ship Data of a file", L"FILE [--format text|json]",
     L"FILE is a database, a DOS database (.vel) or a file of ship data (.bsd).", kShowOptions, 1,
     1, RunShipShow},
    {L"bsd import", L"replaces the Basic Ship Data of a database",
     L"DATABASE FILE [--force] [--no-history]",
     L"FILE is as in 'bsd show'. Without --force only where the database has no valid data.",
     kEditOptions, 2, 2, RunShipImport},
    {L"convert", L"converts a DOS database to a model database, or back",
     L"SOURCE TARGET [--force] [--no-history]",
     L"One of the two has the extension .vel. What the other form has no room for is reported.",
     kEditOptions, 2, 2, RunConvert},
    {L"draw", L"draws sections and bulkheads to scale",
     L"DATABASE MODEL FILE [--force], or DATABASE --all FOLDER --kind svg|dxf|png [--force]",
     L"A sheet of A4 with a title block. FILE ends in .svg, .dxf or .png, which has 300 dots\n"
     L"per inch. With --all each section and bulkhead arrangement is in FOLDER, as\n"
     L"\"NUMBER NAME.svg\". Prints the names of the files.",
     kDrawOptions, 2, 3, RunDraw},
};

constexpr wchar_t kModelNote[] =
    L"MODEL is the number of a model as 'list' shows it, or its name, when one model alone has "
    L"it.\n";

constexpr wchar_t kExitNote[] =
    L"Exit status: 0 done; 1 done, and something was reported; 2 wrong arguments;\n"
    L"3 failed, every file is as it was.\n";

std::wstring Padded(std::wstring text, size_t width) {
    text.resize(std::max(text.size() + 1, width), L' ');
    return text;
}

std::wstring OptionLines(const ToolCommand& command) {
    std::wstring lines;
    for (const Option option : command.options) {
        const OptionFacts& facts = OptionTable()[static_cast<size_t>(option)];
        std::wstring names(facts.name);
        if (!facts.value.empty()) names += L' ' + std::wstring(facts.value);
        if (!facts.shortName.empty()) names += L", " + std::wstring(facts.shortName);
        lines += L"  " + Padded(names, 16) + facts.purpose + L'\n';
    }
    return lines;
}

std::wstring HelpOfProgram() {
    std::wstring text = UsageLine(nullptr) + L"\nCommands:\n";
    for (const ToolCommand& command : ToolCommands()) {
        text += L"  " + Padded(std::wstring(command.name), 12) + command.purpose + L'\n';
    }
    return text + L"\n'corvane COMMAND --help' explains a command, 'corvane --version' gives the " +
           L"version.\n" + kModelNote + kExitNote;
}

}  // namespace

std::span<const ToolCommand> ToolCommands() {
    return kCommands;
}

std::wstring UsageLine(const ToolCommand* command) {
    if (command == nullptr) return L"usage: corvane COMMAND [ARGUMENTS]\n";
    return L"usage: corvane " + std::wstring(command->name) + L' ' + command->usage + L'\n';
}

std::wstring HelpText(const ToolCommand* command) {
    if (command == nullptr) return HelpOfProgram();
    std::wstring text = UsageLine(command) + L'\n' + command->details + L"\n\n";
    text += OptionLines(*command);
    const bool hasModels = std::wstring_view(command->usage).find(L"MODEL") != std::wstring::npos;
    return text + L'\n' + (hasModels ? kModelNote : L"") + kExitNote;
}

}  // namespace corvane
