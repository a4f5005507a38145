// The torsion models of the sample ship: holds, cross decks, the hull between them as beams, and
// the twist of these beams. Only the torsion program reads what stands in such a block.
#pragma once

#include <string>
#include <vector>

#include "files/text_file.h"
#include "samples/ship_sections.h"

namespace corvane::samples {

// From the hold with the higher number, the aft one, to the other.
struct TorsionPlan {
    std::wstring name;
    int32_t aftHold, foreHold;
};

// The lines behind the name label; `sections` are those of model 1 to 9.
void WriteTorsionBody(TextWriter& writer, const TorsionPlan& plan,
                      const std::vector<SectionDraft>& sections);

}  // namespace corvane::samples
