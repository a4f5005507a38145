// A section in the form of the geometry library (platform/grvelk.h): addresses into the model, and
// the arrays that the model has in another shape. What the library computes is then in the model.
#pragma once

#include <vector>

#include "database/section.h"
#include "platform/grvelk.h"

namespace corvane {

// Valid while the model lives and none of its vectors changes. Copying the record copies addresses.
struct LibraryView {
    Section section{};
    std::vector<Strake> strakes;
    std::vector<CompartmentOutline> outlines;
};

// Counts beyond 16 bits are cut. The model's `items` and `plateEnds` are sized and filled, and each
// stiffener gets the profile of its first span and its own turn.
void MakeLibraryView(SectionModel& model, LibraryView& view);

}  // namespace corvane
