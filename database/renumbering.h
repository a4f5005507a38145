// Numbers models by their places: the first block of a database gets 1, the next one 2, and so on.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

// Writes the numbers of the blocks again; comment lines between a marker and its number become one
// rule, and every other line of
// the file stays. The old text becomes the backup (BackupPath). `before` gets the numbers that the
// blocks had, in file order; nothing is written when they are those of the places already. A
// read-only file (1086), a block without a line for a number (3522), and a file that cannot be read
// or written are reported: false, and the file is as it was.
bool RenumberModels(const std::wstring& path, std::vector<int32_t>& before);

}  // namespace corvane
