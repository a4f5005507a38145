#include "text/text.h"

#include <algorithm>

#include "platform/system.h"

namespace corvane {
namespace {

// What no file name of the suite may hold.
constexpr std::wstring_view kForbiddenInFileNames = L" ~*?^}{|><;,:/\\¤¨.§!%µç`@=+\"[]";

// The letters of code page 1252 that have another case within it. Written out rather than asked of
// the system, whose answer depends on the locale.
wchar_t LowerLetter(wchar_t letter) {
    if (letter >= L'A' && letter <= L'Z') return static_cast<wchar_t>(letter + 32);
    if (letter >= L'À' && letter <= L'Þ' && letter != L'×') {
        return static_cast<wchar_t>(letter + 32);
    }
    switch (letter) {
        case L'Š':
            return L'š';
        case L'Œ':
            return L'œ';
        case L'Ž':
            return L'ž';
        case L'Ÿ':
            return L'ÿ';
        default:
            return letter;
    }
}

wchar_t UpperLetter(wchar_t letter) {
    if (letter >= L'a' && letter <= L'z') return static_cast<wchar_t>(letter - 32);
    if (letter >= L'à' && letter <= L'þ' && letter != L'÷') {
        return static_cast<wchar_t>(letter - 32);
    }
    switch (letter) {
        case L'š':
            return L'Š';
        case L'œ':
            return L'Œ';
        case L'ž':
            return L'Ž';
        case L'ÿ':
            return L'Ÿ';
        default:
            return letter;
    }
}

char UpperByte(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    if (code >= 'a' && code <= 'z') return static_cast<char>(code - 0x20);
    if (code >= 0xE0 && code <= 0xFE && code != 0xF7) return static_cast<char>(code - 0x20);
    if (code == 0x9A || code == 0x9C || code == 0x9E) return static_cast<char>(code - 0x10);
    if (code == 0xFF) return static_cast<char>(0x9F);
    return byte;
}

template <class View>
View WithoutOuterBlanks(View text) {
    const size_t begin = text.find_first_not_of(' ');
    if (begin == View::npos) return {};
    return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

}  // namespace

std::wstring Trim(std::wstring_view text) {
    return std::wstring(WithoutOuterBlanks(text));
}

std::string_view Trim(std::string_view text) {
    return WithoutOuterBlanks(text);
}

std::wstring LowerCase(std::wstring_view text) {
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), LowerLetter);
    return result;
}

std::wstring UpperCase(std::wstring_view text) {
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), UpperLetter);
    return result;
}

std::string UpperCase(std::string_view bytes) {
    std::string result(bytes);
    std::transform(result.begin(), result.end(), result.begin(), UpperByte);
    return result;
}

bool EqualsIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return LowerLetter(x) == LowerLetter(y); });
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

std::wstring OemToAnsiText(std::string_view oem) {
    return Trim(CutAtNul(system::WideFromAnsi(system::AnsiFromOem(oem))));
}

std::string AnsiToOemText(std::wstring_view text) {
    return std::string(Trim(system::OemFromAnsi(system::AnsiFromWide(CutAtNul(text)))));
}

}  // namespace corvane
