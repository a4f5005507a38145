// Bulkhead arrangements for the tests: the one of tests/golden/bulkhead_full.ve2, and random ones.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "database/bulkhead_block.h"
#include "tests/database/block_sample.h"

namespace corvane::test {

// That of the golden file.
BulkheadArrangement FullArrangement();
// Every field set at random, and every list of a random length.
BulkheadArrangement RandomArrangement(uint32_t seed);

// The text of the block after the name label.
std::string BodyText(BulkheadArrangement& arrangement);
// The whole block.
std::string BlockText(BulkheadArrangement& arrangement, int32_t number);
// A block or a file as far as the reader reads it, from memory.
BulkheadArrangement ReadArrangement(std::string_view text);

}  // namespace corvane::test
