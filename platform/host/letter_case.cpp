#include "platform/letter_case.h"

#include <array>
#include <clocale>
#include <cwctype>

namespace corvane::system {
namespace {

// The rules of Unicode; the locale lives as long as the process.
locale_t Unicode() {
    static locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return unicode;
}

std::wstring Mapped(std::wstring_view text, wint_t (*map)(wint_t, locale_t)) {
    // The locale takes its time for each letter; most of them are these.
    std::array<wchar_t, 128> ascii{};
    for (size_t i = 0; i < ascii.size(); ++i) {
        ascii[i] = static_cast<wchar_t>(map(static_cast<wint_t>(i), Unicode()));
    }
    std::wstring result(text);
    for (wchar_t& letter : result) {
        const bool isAscii = letter >= 0 && letter < wchar_t{ascii.size()};
        letter = isAscii ? ascii[static_cast<unsigned char>(letter)]
                         : static_cast<wchar_t>(map(static_cast<wint_t>(letter), Unicode()));
    }
    return result;
}

}  // namespace

std::wstring InLowerCase(std::wstring_view text) {
    return Mapped(text, towlower_l);
}

std::wstring InUpperCase(std::wstring_view text) {
    return Mapped(text, towupper_l);
}

}  // namespace corvane::system
