#include "tests/ui/binary_names.h"

#include <algorithm>
#include <cstring>
#include <cwctype>

#include "platform/win32/win32.h"
#include "tests/support/support.h"

namespace corvane::ui {
namespace {

constexpr size_t kImports = IMAGE_DIRECTORY_ENTRY_IMPORT;

std::wstring Lower(std::string_view name) {
    std::wstring lower(name.begin(), name.end());
    std::ranges::transform(lower, lower.begin(), towlower);
    return lower;
}

// A program's file, and where its sections are when it is loaded.
struct Image {
    std::string bytes;
    const IMAGE_NT_HEADERS* headers = nullptr;

    explicit Image(const std::wstring& path) : bytes(test::ReadFileBytes(path)) {
        const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(bytes.data());
        headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(bytes.data() + dos->e_lfanew);
    }
    // What is at an address relative to the image's.
    const char* At(DWORD address) const {
        const auto* section = reinterpret_cast<const IMAGE_SECTION_HEADER*>(
            reinterpret_cast<const char*>(&headers->OptionalHeader) +
            headers->FileHeader.SizeOfOptionalHeader);
        for (int i = 0; i < headers->FileHeader.NumberOfSections; ++i, ++section) {
            const DWORD inside = address - section->VirtualAddress;
            if (address >= section->VirtualAddress && inside < section->SizeOfRawData) {
                return bytes.data() + section->PointerToRawData + inside;
            }
        }
        return nullptr;
    }
};

bool IsOfName(char byte) {
    return std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '.' || byte == '_' ||
           byte == '-';
}

bool IsProgramName(std::string_view name) {
    for (const char* end : {".dll", ".drv", ".exe", ".com", ".cpl"}) {
        if (name.size() > 4 && _strnicmp(name.data() + name.size() - 4, end, 4) == 0) return true;
    }
    return false;
}

// Every run of characters that names may have and that looks like a program's. Numbers before a
// text may look like one or two characters of it.
void AddNames(std::string_view text, std::set<std::wstring>& names) {
    for (size_t begin = 0; begin < text.size();) {
        size_t end = begin;
        while (end < text.size() && IsOfName(text[end])) ++end;
        const std::string_view run = text.substr(begin, end - begin);
        for (size_t skipped = 0; skipped < 3 && skipped < run.size(); ++skipped) {
            const std::string_view name = run.substr(skipped);
            if (IsProgramName(name)) names.insert(Lower(name));
        }
        begin = end + 1;
    }
}

// The characters at every second byte; a byte between them that is not zero ends a run.
std::string Narrowed(const std::string& bytes, size_t first) {
    std::string text;
    for (size_t i = first; i + 1 < bytes.size(); i += 2) {
        text += bytes[i + 1] == '\0' ? bytes[i] : '\0';
    }
    return text;
}

}  // namespace

std::set<std::wstring> ImportsOf(const std::wstring& program) {
    const Image image(program);
    std::set<std::wstring> names;
    const char* table =
        image.At(image.headers->OptionalHeader.DataDirectory[kImports].VirtualAddress);
    for (;; table += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
        IMAGE_IMPORT_DESCRIPTOR entry;
        std::memcpy(&entry, table, sizeof entry);
        if (entry.Name == 0) return names;
        names.insert(Lower(image.At(entry.Name)));
    }
}

std::set<std::wstring> NamesIn(const std::wstring& program) {
    const std::string bytes = test::ReadFileBytes(program);
    std::set<std::wstring> names;
    AddNames(bytes, names);
    AddNames(Narrowed(bytes, 0), names);
    AddNames(Narrowed(bytes, 1), names);
    return names;
}

}  // namespace corvane::ui
