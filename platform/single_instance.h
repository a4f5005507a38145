// The name by which the running instances of one program file find each other.
#pragma once

#include <cstdint>
#include <string>

namespace corvane::system {

// A short name made from the program's path; copies of the program elsewhere get other names.
inline std::wstring InstanceName(const std::wstring& programPath) {
    uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
    for (const wchar_t character : programPath) {
        hash = (hash ^ static_cast<uint64_t>(character)) * 0x100000001B3;
    }
    return L"corvane-" + std::to_wstring(hash);
}

}  // namespace corvane::system
