// What an edit must make of a database's text: the text taken apart and put together again here, of
// its own bytes and of blocks that the writers of records give. No edit of the program is asked.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "bsd/basic_ship_data.h"

namespace corvane::faults {

// The text of a block with this number.
using MakeBlock = std::function<std::string(int32_t number)>;

// The block instead of number `number`.
std::string WithBlock(const std::string& text, int32_t number, const MakeBlock& block);
// The block at the end, with the next number.
std::string WithNewBlock(const std::string& text, const MakeBlock& block);
// Block `number` once more at the end, with the next number.
std::string WithCopy(const std::string& text, int32_t number);
// Without block `number`; those after it have numbers one lower.
std::string WithoutBlock(const std::string& text, int32_t number);
// Another name in the line of block `number` that has the old one.
std::string WithName(const std::string& text, int32_t number, const std::wstring& oldName,
                     const std::wstring& newName);
// Other ship data.
std::string WithShipData(const std::string& text, BasicShipData bsd);

}  // namespace corvane::faults
