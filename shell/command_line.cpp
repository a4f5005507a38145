#include "shell/command_line.h"

#include <algorithm>
#include <cstddef>

#include "text/text.h"

namespace corvane {
namespace {

constexpr size_t kNone = std::wstring::npos;

// The first double quote from `from` on; only where there is none, the first single one.
size_t FindQuote(const std::wstring& line, size_t from) {
    const size_t quote = line.find(L'"', from);
    return quote != kNone ? quote : line.find(L'\'', from);
}

void BlankOut(std::wstring& line, size_t from, size_t count) {
    line.replace(from, count, count, L' ');
    line = Trim(line);
}

void TakeQuotedArguments(std::wstring& line, std::vector<std::wstring>& arguments) {
    for (;;) {
        const size_t opening = FindQuote(line, 0);
        if (opening == kNone) return;
        const size_t closing = FindQuote(line, opening + 1);
        const size_t end = closing == kNone ? line.size() : closing;
        arguments.push_back(line.substr(opening + 1, end - opening - 1));
        BlankOut(line, opening, (closing == kNone ? end : end + 1) - opening);
    }
}

void TakeWords(const std::wstring& line, std::vector<std::wstring>& arguments) {
    size_t begin = line.find_first_not_of(L' ');
    while (begin != kNone) {
        const size_t end = std::min(line.find(L' ', begin), line.size());
        arguments.push_back(line.substr(begin, end - begin));
        begin = line.find_first_not_of(L' ', end);
    }
}

}  // namespace

bool SwitchPresent(std::wstring& commandLine, std::wstring_view switchText) {
    const size_t place = LowerCase(commandLine).find(LowerCase(switchText));
    if (place == kNone) return false;
    const size_t after = place + switchText.size();
    // The line's last character is not looked at.
    if (after + 1 < commandLine.size() && commandLine[after] != L' ') return false;
    BlankOut(commandLine, place, switchText.size());
    return true;
}

std::wstring ParseCommandLine(const std::wstring& commandLine, bool& debug, bool& mil,
                              std::vector<std::wstring>& furtherArguments) {
    std::wstring line = commandLine;
    debug = SwitchPresent(line, L"/d");
    mil = SwitchPresent(line, L"/mil");
    std::vector<std::wstring> arguments;
    TakeQuotedArguments(line, arguments);
    TakeWords(line, arguments);
    if (arguments.empty()) return {};
    const size_t kept = std::min(arguments.size() - 1, furtherArguments.size());
    std::move(arguments.begin() + 1, arguments.begin() + 1 + static_cast<ptrdiff_t>(kept),
              furtherArguments.begin());
    return arguments.front();
}

}  // namespace corvane
