#include "tools/formats.h"

#include <algorithm>

#include "text/numbers.h"

namespace corvane {
namespace {

bool IsControl(wchar_t character) {
    return character < L' ' || (character >= 0x7F && character < 0xA0);
}

std::wstring Escaped(wchar_t character) {
    constexpr wchar_t kDigits[] = L"0123456789abcdef";
    const auto code = static_cast<char32_t>(character);
    return {L'\\', L'u', L'0', L'0', kDigits[code >> 4 & 15], kDigits[code & 15]};
}

std::wstring CsvField(const std::wstring& text) {
    const bool isPlain = text.find_first_of(L",\"\r\n") == std::wstring::npos &&
                         (text.empty() || (text.front() != L' ' && text.back() != L' '));
    if (isPlain) return text;
    std::wstring field = L"\"";
    for (const wchar_t character : text) {
        if (character == L'"') field += L'"';
        field += character;
    }
    return field + L'"';
}

}  // namespace

std::wstring AlignedText(const std::vector<TextRow>& rows, const std::vector<bool>& alignsRight) {
    std::vector<size_t> widths(alignsRight.size());
    for (const TextRow& row : rows) {
        for (size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    }
    std::wstring text;
    for (const TextRow& row : rows) {
        std::wstring line;
        for (size_t i = 0; i < row.size(); ++i) {
            const std::wstring padding(widths[i] - row[i].size(), L' ');
            const std::wstring cell = Printable(row[i]);
            line += (i == 0 ? L"" : L"  ") + (alignsRight[i] ? padding + cell : cell + padding);
        }
        text += line.substr(0, line.find_last_not_of(L' ') + 1) + L'\n';
    }
    return text;
}

std::wstring CsvLine(const TextRow& row) {
    std::wstring line;
    for (const std::wstring& field : row) {
        if (&field != &row.front()) line += L',';
        line += CsvField(field);
    }
    return line + L'\n';
}

std::wstring JsonText(std::wstring_view text) {
    std::wstring json = L"\"";
    for (const wchar_t character : text) {
        if (character == L'"' || character == L'\\') {
            json += {L'\\', character};
        } else if (IsControl(character)) {
            json += Escaped(character);
        } else {
            json += character;
        }
    }
    return json + L'"';
}

std::wstring JsonNumber(float value) {
    return GeneralText(value);
}

std::wstring Printable(std::wstring_view text) {
    std::wstring printable(text);
    std::ranges::replace_if(printable, IsControl, L'?');
    return printable;
}

}  // namespace corvane
