// The arguments of the command line program `corvane`: a command, its operands and its options.
//
//     corvane COMMAND [OPERAND...] [--option] [--option VALUE] [--option=VALUE] [--] [OPERAND...]
//
// Options may be anywhere after the command. After "--" everything is an operand.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

enum class Option { kFormat, kTableFormat, kTo, kAll, kKind, kForce, kNoHistory, kDryRun };
inline constexpr int kOptionCount = 8;

struct OptionFacts {
    Option option;
    std::wstring_view name;       // with its dashes
    std::wstring_view shortName;  // empty: it has no short name
    std::wstring_view value;      // what follows it; empty: nothing does
    // The words that the value may be, each ended by a blank; empty: any text.
    std::wstring_view choices;
    const wchar_t* purpose;
};
// In the order of the enumeration.
std::span<const OptionFacts> OptionTable();

// The exit status of the program.
enum ExitCode {
    kExitDone = 0,
    kExitFindings = 1,  // done, and what was reported is to be looked at
    kExitUsage = 2,     // the arguments are wrong; nothing was done
    kExitFailed = 3,    // not done; every file is as it was
};

struct Request;

struct ToolCommand {
    std::wstring_view name;  // one word or two
    const wchar_t* purpose;
    const wchar_t* usage;    // what follows the name
    const wchar_t* details;  // lines for --help
    std::span<const Option> options;
    size_t leastOperands, mostOperands;
    ExitCode (*run)(const Request& request);
};
// Operands without a limit of their own; the system has one.
inline constexpr size_t kAnyNumber = static_cast<size_t>(-1);

enum class RequestKind { kCommand, kHelp, kVersion, kFault };

// What the user wants.
struct Request {
    RequestKind kind = RequestKind::kCommand;
    const ToolCommand* command = nullptr;  // null: --help is about all of them
    std::vector<std::wstring> operands;
    // What was given of the options, by their numbers; of an option without a value its name.
    std::array<std::wstring, kOptionCount> values;
    std::wstring fault;  // what is wrong, of kFault; one line

    bool Has(Option option) const { return !Value(option).empty(); }
    const std::wstring& Value(Option option) const {
        return values.at(static_cast<size_t>(option));
    }
};

// Reads the arguments after the program's name. A fault names the first thing that is wrong.
Request ReadRequest(std::span<const std::wstring> arguments);

}  // namespace corvane
