// Any command line: the switches and the arguments taken off it. Each byte is one character.
#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/fuzz.h"
#include "shell/command_line.h"
#include "text/text.h"

namespace {

void Check(bool condition) {
    if (!condition) std::abort();
}

std::wstring WithoutBlanks(std::wstring text) {
    std::erase(text, L' ');
    return text;
}

// Whether the characters of `part`, blanks aside, stand in `whole` in the same order.
bool StandsInOrder(const std::wstring& part, const std::wstring& whole) {
    size_t place = 0;
    for (const wchar_t character : WithoutBlanks(part)) {
        place = whole.find(character, place);
        if (place == std::wstring::npos) return false;
        ++place;
    }
    return true;
}

void CheckSwitch(const std::wstring& before, std::wstring_view switchText) {
    std::wstring line = before;
    if (!corvane::SwitchPresent(line, switchText)) {
        Check(line == before);
        return;
    }
    Check(line == corvane::Trim(line));
    Check(WithoutBlanks(line).size() + switchText.size() == WithoutBlanks(before).size());
    Check(line.size() <= before.size());
    Check(StandsInOrder(line, before));
}

}  // namespace

CORVANE_FUZZ_TARGET(command_line) {
    std::wstring line;
    std::ranges::transform(bytes, std::back_inserter(line), [](char byte) {
        return static_cast<wchar_t>(static_cast<unsigned char>(byte));
    });
    for (const wchar_t* switchText : {L"/d", L"/mil", L"/JBP"}) CheckSwitch(line, switchText);

    bool debug = false;
    bool mil = false;
    // Room that gets no argument stays empty.
    std::vector<std::wstring> arguments(3);
    arguments.push_back(corvane::ParseCommandLine(line, debug, mil, arguments));
    Check(arguments.size() == 4);
    size_t characters = 0;
    for (const std::wstring& argument : arguments) {
        Check(argument.find(L'"') == std::wstring::npos);
        Check(StandsInOrder(argument, line));
        characters += WithoutBlanks(argument).size();
    }
    // No character stands in two arguments, but for blanks: a taken argument leaves blanks behind.
    Check(characters <= line.size());

    std::wstring rest = line;
    Check(debug == corvane::SwitchPresent(rest, L"/d"));
    Check(mil == corvane::SwitchPresent(rest, L"/mil"));
    // Without a quote the first word is the file.
    if (rest.find_first_of(L"\"'") == std::wstring::npos) {
        rest = corvane::Trim(rest);
        Check(arguments.back() == rest.substr(0, rest.find(L' ')));
    }
}
