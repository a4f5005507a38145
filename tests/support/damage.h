// Damage to files, byte by byte, without writing the rest of them again.
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>

namespace corvane::test {

// The tests' own view of a Windows path: on the host the drives are the root of the file system.
std::filesystem::path NativePath(const std::wstring& path);

void CutFile(const std::wstring& path, size_t size);

// Flips one bit after the other: the one before is back in its place then.
struct BitFlipper {
    explicit BitFlipper(const std::wstring& path);
    void Flip(size_t place, int bit);

private:
    void Put(size_t place, char byte);

    std::string bytes;
    std::fstream file;
    size_t flipped = 0;
};

}  // namespace corvane::test
