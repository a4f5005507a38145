#include "tests/support/damage.h"

#include <gtest/gtest.h>

#include "tests/support/support.h"

namespace corvane::test {

void CutFile(const std::wstring& path, size_t size) {
    std::filesystem::resize_file(NativePath(path), size);
}

BitFlipper::BitFlipper(const std::wstring& path)
    : bytes(ReadFileBytes(path)),
      file(NativePath(path), std::ios::binary | std::ios::in | std::ios::out) {}

void BitFlipper::Flip(size_t place, int bit) {
    Put(flipped, bytes[flipped]);
    Put(place, static_cast<char>(bytes[place] ^ (1 << bit)));
    flipped = place;
    ASSERT_TRUE(file.flush().good());
}

void BitFlipper::Put(size_t place, char byte) {
    file.seekp(static_cast<std::streamoff>(place));
    file.put(byte);
}

}  // namespace corvane::test
