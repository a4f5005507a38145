// Reads what the tests need of a dump: a file of streams, as Windows documents them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane::ui {

struct Dump {
    bool isWhole = false;               // each stream is inside of the file
    std::vector<std::wstring> modules;  // full paths
    size_t threads = 0;
    uint32_t exceptionCode = 0;
    uint32_t exceptionThread = 0;
    uint64_t exceptionAddress = 0;
};
Dump ReadDump(const std::wstring& path);

}  // namespace corvane::ui
