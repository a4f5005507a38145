// The name by which the running instances of one program file find each other, shared by the twins
// of process.cpp. Inline, because this folder has sources in its twin folders only.
#pragma once

#include <cstdint>
#include <string>

namespace corvane::system {

// A short name made from the program's path, of letters, digits and hyphens; copies of the program
// elsewhere get other names. The same path gives the same name in every run.
inline std::wstring InstanceName(const std::wstring& programPath) {
    uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
    for (const wchar_t character : programPath) {
        hash = (hash ^ static_cast<uint64_t>(character)) * 0x100000001B3;
    }
    return L"corvane-" + std::to_wstring(hash);
}

}  // namespace corvane::system
