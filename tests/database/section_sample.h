// Sections for the tests: the one of tests/golden/section_full.ve2, and random ones.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "database/section_block.h"
#include "tests/database/block_sample.h"

namespace corvane::test {

// That of the golden file.
SectionModel FullSection();
// Every field set at random, and every list of a random length.
Span RandomSpan(Chance& chance);
Plate RandomPlate(Chance& chance);
PrimaryBracket RandomBracket(Chance& chance);
Opening RandomOpening(Chance& chance);
Pillar RandomPillar(Chance& chance);
SectionModel RandomSection(uint32_t seed);

// The text of the block after the name label.
std::string BodyText(SectionModel& section);
// The whole block.
std::string BlockText(SectionModel& section, int32_t number);
// A block or a file as far as the section reader reads it, from memory.
SectionModel ReadText(std::string_view text, ModelKind kind = ModelKind::kSection);

}  // namespace corvane::test
