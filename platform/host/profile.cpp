#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "platform/host/native.h"
#include "platform/system.h"

namespace corvane::system {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Trimmed(std::string_view text) {
    const size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

bool SameName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) ==
               std::tolower(static_cast<unsigned char>(y));
    });
}

std::wstring ProfilePath(const std::wstring& file) {
    if (file.find_first_of(L"\\/:") != std::wstring::npos) return file;
    return WindowsDirectory() + file;
}

// The lines of the file with their ends; a missing file has none.
ErrorNumber LoadLines(const std::wstring& path, std::vector<std::string>& lines) {
    File file;
    ErrorNumber error = OpenForReading(path, file);
    if (error == kErrorFileNotFound) return kErrorNone;
    if (error != kErrorNone) return error;
    std::string bytes;
    size_t count = 0;
    do {
        char buffer[4096];
        error = ReadBytes(file, buffer, sizeof buffer, count);
        bytes.append(buffer, count);
    } while (error == kErrorNone && count > 0);
    CloseFile(file);
    for (size_t begin = 0; begin < bytes.size();) {
        const size_t end = std::min(bytes.find('\n', begin), bytes.size() - 1) + 1;
        lines.push_back(bytes.substr(begin, end - begin));
        begin = end;
    }
    return error;
}

ErrorNumber SaveLines(const std::wstring& path, const std::vector<std::string>& lines) {
    File file;
    ErrorNumber error = CreateForWriting(path, file);
    if (error != kErrorNone) return error;
    for (const std::string& line : lines) {
        if (error == kErrorNone) error = WriteBytes(file, line.data(), line.size());
    }
    const ErrorNumber closeError = CloseFile(file);
    return error != kErrorNone ? error : closeError;
}

bool IsSection(std::string_view line) {
    const std::string_view text = Trimmed(line);
    return !text.empty() && text[0] == '[';
}

std::string_view SectionName(std::string_view line) {
    const std::string_view text = Trimmed(line);
    return Trimmed(text.substr(1, text.find(']') - 1));
}

// The name in front of "=", empty when the line holds no key.
std::string_view KeyName(std::string_view line) {
    const size_t equals = line.find('=');
    const std::string_view name = Trimmed(line.substr(0, equals));
    if (equals == std::string_view::npos || name.empty() || name[0] == ';') return {};
    return name;
}

// The lines of the first section of that name, after its own line; found is false without one.
struct SectionLines {
    bool found = false;
    size_t begin = 0;
    size_t end = 0;
};

SectionLines FindSection(const std::vector<std::string>& lines, std::string_view section) {
    SectionLines result;
    size_t i = 0;
    while (i < lines.size() && !(IsSection(lines[i]) && SameName(SectionName(lines[i]), section))) {
        ++i;
    }
    if (i == lines.size()) return result;
    result.found = true;
    result.begin = i + 1;
    result.end = result.begin;
    while (result.end < lines.size() && !IsSection(lines[result.end])) ++result.end;
    return result;
}

// The index of the key's line; `end` of the section when it has none.
size_t FindKey(const std::vector<std::string>& lines, const SectionLines& place,
               std::string_view key) {
    size_t i = place.begin;
    while (i < place.end && !SameName(KeyName(lines[i]), key)) ++i;
    return i;
}

std::string Unquoted(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && (value[0] == '"' || value[0] == '\'') && value.back() == value[0];
    return std::string(quoted ? value.substr(1, value.size() - 2) : value);
}

bool FindValue(const std::wstring& file, std::string_view section, std::string_view key,
               std::string& value) {
    std::vector<std::string> lines;
    if (LoadLines(ProfilePath(file), lines) != kErrorNone) return false;
    const SectionLines place = FindSection(lines, Trimmed(section));
    const size_t found = FindKey(lines, place, Trimmed(key));
    if (found == place.end) return false;
    const std::string_view line = lines[found];
    value = Unquoted(Trimmed(line.substr(line.find('=') + 1)));
    return true;
}

// Puts a new key after the section's last line that is not blank.
void InsertKey(std::vector<std::string>& lines, const SectionLines& place,
               const std::string& line) {
    size_t end = place.end;
    while (end > place.begin && Trimmed(lines[end - 1]).empty()) --end;
    lines.insert(lines.begin() + static_cast<ptrdiff_t>(end), line);
}

}  // namespace

std::string ReadProfileText(const std::string& section, const std::string& key,
                            const std::string& fallback, const std::wstring& file, size_t most) {
    std::string value;
    if (!FindValue(file, section, key, value)) {
        value = fallback.substr(0, fallback.find_last_not_of(' ') + 1);
    }
    return value.substr(0, most);
}

// Leading digits, with a sign, of the value; an empty one counts as missing.
int32_t ReadProfileInteger(const std::string& section, const std::string& key, int32_t fallback,
                           const std::wstring& file) {
    std::string value;
    if (!FindValue(file, section, key, value) || value.empty()) return fallback;
    size_t i = value.find_first_not_of(kBlanks);
    if (i == std::string::npos) return 0;
    const bool negative = value[i] == '-';
    if (negative || value[i] == '+') ++i;
    uint32_t number = 0;
    for (; i < value.size() && value[i] >= '0' && value[i] <= '9'; ++i) {
        number = number * 10 + static_cast<uint32_t>(value[i] - '0');
    }
    return static_cast<int32_t>(negative ? 0 - number : number);
}

ErrorNumber WriteProfileText(const std::string& section, const std::string& key,
                             const std::string& value, const std::wstring& file) {
    const std::wstring path = ProfilePath(file);
    std::vector<std::string> lines;
    const ErrorNumber error = LoadLines(path, lines);
    if (error != kErrorNone) return error;
    if (!lines.empty() && lines.back().back() != '\n') lines.back() += "\r\n";
    SectionLines place = FindSection(lines, Trimmed(section));
    if (!place.found) {
        lines.push_back("[" + section + "]\r\n");
        place.begin = place.end = lines.size();
    }
    const size_t found = FindKey(lines, place, Trimmed(key));
    if (found != place.end) {
        lines[found] = std::string(KeyName(lines[found])) + "=" + value + "\r\n";
    } else {
        InsertKey(lines, place, key + "=" + value + "\r\n");
    }
    return SaveLines(path, lines);
}

}  // namespace corvane::system
