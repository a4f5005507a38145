#include "stand_ins/request.h"

#include <vector>

#include "platform/system.h"
#include "report/reporters.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane::stand_ins {
namespace {

constexpr wchar_t kUsage[] =
    L"²²Corvane starts this program: open a database there and choose a command from its menus. "
    L"To start it by hand, add²²[/d] [/mil] [/JBP] \"database\" [model number]";

bool ReportUsage(const std::wstring& fault, MessageArguments arguments = {}) {
    ReportMessage(fault + kUsage, arguments);
    return false;
}

struct Word {
    std::wstring text;
    bool quoted = false;
};

// False for a quote that is never closed.
bool SplitWords(const std::wstring& line, std::vector<Word>& words) {
    constexpr wchar_t kBlanks[] = L" \t\r\n";
    size_t begin = line.find_first_not_of(kBlanks);
    while (begin != std::wstring::npos) {
        Word word;
        word.quoted = line[begin] == L'"';
        if (word.quoted) ++begin;
        size_t end = word.quoted ? line.find(L'"', begin) : line.find_first_of(L" \t\r\n\"", begin);
        if (end == std::wstring::npos) {
            if (word.quoted) return false;
            end = line.size();
        }
        word.text = line.substr(begin, end - begin);
        words.push_back(word);
        begin = line.find_first_not_of(kBlanks, word.quoted ? end + 1 : end);
    }
    return true;
}

bool ApplySwitch(const std::wstring& word, Request& request) {
    bool* const flag = EqualsIgnoringCase(word, L"/d")     ? &request.debug
                       : EqualsIgnoringCase(word, L"/mil") ? &request.mil
                       : EqualsIgnoringCase(word, L"/JBP") ? &request.jbp
                                                           : nullptr;
    if (flag == nullptr) return ReportUsage(L"There is no switch '¤'.", {word});
    *flag = true;
    return true;
}

// Digits alone, at most as many as the model numbers of Corvane have.
bool ReadModelNumber(const std::wstring& word, Request& request) {
    constexpr size_t kMostDigits = 5;
    const bool isNumber = !word.empty() && word.size() <= kMostDigits &&
                          word.find_first_not_of(L"0123456789") == std::wstring::npos;
    request.model = isNumber ? LeadingInteger(word) : 0;
    if (request.model >= 1 && request.model <= INT16_MAX) return true;
    return ReportUsage(L"'¤' is not the number of a model.", {word});
}

}  // namespace

bool ReadRequest(const std::wstring& commandLine, Request& request) {
    request = Request();
    std::vector<Word> words;
    if (!SplitWords(commandLine, words)) {
        return ReportUsage(L"The command line has a quote that is not closed:²²¤", {commandLine});
    }
    std::vector<std::wstring> arguments;
    for (const Word& word : words) {
        if (word.quoted || word.text.front() != L'/') {
            arguments.push_back(word.text);
        } else if (!ApplySwitch(word.text, request)) {
            return false;
        }
    }
    if (arguments.empty() || Trim(arguments.front()).empty()) {
        return ReportUsage(L"No database was given.");
    }
    if (arguments.size() > 2) {
        return ReportUsage(L"The command line has more than a database and a model number: '¤'.",
                           {arguments[2]});
    }
    request.databasePath = system::AbsolutePath(arguments.front());
    return arguments.size() == 1 || ReadModelNumber(arguments[1], request);
}

std::wstring SwitchText(const Request& request) {
    std::wstring text;
    if (request.debug) text += L"/d ";
    if (request.mil) text += L"/mil ";
    if (request.jbp) text += L"/JBP ";
    return text.empty() ? L"none" : Trim(text);
}

}  // namespace corvane::stand_ins
