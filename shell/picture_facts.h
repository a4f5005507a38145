// What the picture of a section says besides its lines: what is under the pointer, what the user
// clicked on, how far two places are apart, and what is switched on over the picture.
#pragma once

#include <string>
#include <vector>

#include "database/section.h"
#include "preview/annotations.h"
#include "preview/section_hit.h"

namespace corvane {

// A place of the section [m], and how near is on it.
struct PicturePlace {
    ShipPoint at{};
    double reach_m = 0;
};

// One line for a tool tip and the status line: the coordinates, and what is there.
std::wstring PlaceLine(SectionModel& section, const PicturePlace& place);
// The same as lines "label tab value", ended by carriage returns. Of two places it is what is at
// the second one, and the distance from the first to it.
std::wstring PlaceFacts(SectionModel& section, const std::vector<PicturePlace>& places);

// A section, and its view that the library has computed.
struct ComputedSection {
    const SectionModel& model;
    const Section& section;
};
// Adds to a picture of the section what is switched on, and the marks of the places.
void AnnotatePicture(const ComputedSection& computed, const PictureOptions& options,
                     const std::vector<PicturePlace>& places, Figure& figure);

// Which of them are on, as keys of the section "Corvane window" of the settings file.
PictureOptions ReadPictureOptions(const std::wstring& file);
// False when the file took not all of it.
bool WritePictureOptions(const std::wstring& file, const PictureOptions& options);

}  // namespace corvane
