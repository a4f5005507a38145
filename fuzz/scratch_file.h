// For targets that work on files: a file of the run, and its bytes.
#pragma once

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "files/file_system.h"
#include "files/text_file.h"

namespace corvane::fuzz {

inline void Check(bool holds) {
    if (!holds) std::abort();
}

// A file of this run, removed at its end.
struct ScratchFile {
    std::wstring path;
    ScratchFile() {
        Check(system::NewTemporaryName(system::TemporaryDirectory(), L"fuz", path) ==
              system::kErrorNone);
    }
    explicit ScratchFile(std::wstring name) : path(std::move(name)) {}
    ~ScratchFile() { KillFile(path); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
};

inline void WriteBytesTo(const std::wstring& path, std::string_view bytes) {
    TextWriter writer;
    Check(CreateText(writer, path));
    WriteText(writer, bytes);
    Check(CloseText(writer));
}

inline std::string BytesOf(const std::wstring& path) {
    system::File file;
    Check(system::OpenForReading(path, file) == system::kErrorNone);
    std::string bytes;
    size_t count = 0;
    do {
        std::array<char, 8192> part;
        Check(system::ReadBytes(file, part.data(), part.size(), count) == system::kErrorNone);
        bytes.append(part.data(), count);
    } while (count != 0);
    system::CloseFile(file);
    return bytes;
}

}  // namespace corvane::fuzz
