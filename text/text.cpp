#include "text/text.h"

#include <algorithm>

#include "platform/letter_case.h"
#include "platform/system.h"

namespace corvane {
namespace {

// What no file name of the suite may hold.
constexpr std::wstring_view kForbiddenInFileNames = L" ~*?^}{|><;,:/\\¤¨.§!%µç`@=+\"[]";

template <class View>
View WithoutOuterBlanks(View text) {
    const size_t begin = text.find_first_not_of(' ');
    if (begin == View::npos) return {};
    return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

bool IsInCodePage(wchar_t character) {
    return character < 0x80 || system::AnsiFromWide({&character, 1}) != "?";
}

// A letter that the code page has keeps its case when the page lacks the other one, so that a text
// that can be written to a file stays one.
std::wstring KeptWritable(std::wstring_view text, std::wstring changed) {
    for (size_t i = 0; i < text.size(); ++i) {
        if (changed[i] != text[i] && !IsInCodePage(changed[i]) && IsInCodePage(text[i])) {
            changed[i] = text[i];
        }
    }
    return changed;
}

}  // namespace

std::wstring Trim(std::wstring_view text) {
    return std::wstring(WithoutOuterBlanks(text));
}

std::string_view Trim(std::string_view text) {
    return WithoutOuterBlanks(text);
}

std::wstring LowerCase(std::wstring_view text) {
    return KeptWritable(text, system::InLowerCase(text));
}

std::wstring UpperCase(std::wstring_view text) {
    return KeptWritable(text, system::InUpperCase(text));
}

std::string UpperCase(std::string_view bytes) {
    return system::AnsiFromWide(UpperCase(system::WideFromAnsi(bytes)));
}

bool EqualsIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return a.size() == b.size() && LowerCase(a) == LowerCase(b);
}

std::wstring WithCapital(std::wstring text) {
    if (!text.empty() && text.front() >= L'a' && text.front() <= L'z') text.front() += L'A' - L'a';
    return text;
}

std::wstring WithSmallLetter(std::wstring text) {
    if (!text.empty() && text.front() >= L'A' && text.front() <= L'Z') text.front() += L'a' - L'A';
    return text;
}

std::wstring CutAtNul(std::wstring_view text) {
    return std::wstring(text.substr(0, text.find(L'\0')));
}

std::wstring CleanFileName(std::wstring_view text) {
    std::wstring name(text);
    std::erase_if(name, [](wchar_t character) {
        return kForbiddenInFileNames.find(character) != std::wstring_view::npos;
    });
    return name;
}

std::wstring ShortenText(std::wstring_view text, int16_t maxLen) {
    const int room = maxLen - 3;
    if (room < 1 || text.size() <= static_cast<size_t>(maxLen)) return std::wstring(text);
    const auto half = static_cast<size_t>(room / 2);
    return Trim(text.substr(0, half)) + L".." + Trim(text.substr(text.size() - half));
}

// Each position is judged by itself, so that three "&" in a row give two.
std::wstring MenuCaptionText(std::wstring_view caption) {
    std::wstring title;
    for (size_t i = 0; i < caption.size(); ++i) {
        const std::wstring_view rest = caption.substr(i);
        if (rest.starts_with(L"...")) break;
        if (rest[0] != L'&' || rest.starts_with(L"&&")) title += rest[0];
    }
    return title;
}

std::wstring ExpandLineBreaks(std::wstring_view message) {
    std::wstring text(message);
    std::replace(text.begin(), text.end(), L'²', L'\r');
    return text;
}

std::wstring WithLineFeeds(std::wstring_view text) {
    std::wstring lines;
    for (const wchar_t character : text) {
        if (character != L'\n') lines += character;
        if (character == L'\r') lines += L'\n';
    }
    return lines;
}

std::wstring OnOneLine(std::wstring text) {
    std::ranges::replace_if(text, [](wchar_t letter) { return letter < L' '; }, L' ');
    return text;
}

std::wstring OemToAnsiText(std::string_view oem) {
    return Trim(CutAtNul(system::WideFromAnsi(system::AnsiFromOem(oem))));
}

std::string AnsiToOemText(std::wstring_view text) {
    return std::string(Trim(system::OemFromAnsi(system::AnsiFromWide(CutAtNul(text)))));
}

}  // namespace corvane
