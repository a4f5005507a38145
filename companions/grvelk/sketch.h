// The parts of the picture of a section, in the order in which they are drawn.
#pragma once

#include "companions/grvelk/chords.h"
#include "companions/grvelk/frame.h"
#include "companions/grvelk/strakes.h"

namespace corvane::grvelk {

// One picture in the making.
struct Sketch {
    const Drawing& drawing;
    const Section& section;
    const DrawingParameters& parameters;
    Mapping mapping;
    Chords chords;
    bool bothSides;  // the section's mirror image is drawn as well
};

// Lengths of signs are given for 96 dots per inch.
double ScaledToDevice(const Sketch& sketch, double pixels);
Pen PenOf(const Sketch& sketch, int colourSlot, double width);
int32_t ColourOf(const Sketch& sketch, int slot);

void FillCompartments(const Sketch& sketch);
void DrawPlating(const Sketch& sketch);
void DrawStrakeLimits(const Sketch& sketch);
void DrawStiffeners(const Sketch& sketch);
void DrawCentreLine(const Sketch& sketch);
void DrawNumbers(const Sketch& sketch);

// Calls `draw` with 1, and with -1 as well when the mirror image is wanted: the sign of y.
template <class Draw>
void ForEachSide(const Sketch& sketch, Draw draw) {
    draw(1.0);
    if (sketch.bothSides) draw(-1.0);
}

FramePoint MappedSide(const Sketch& sketch, double side, Point point);

}  // namespace corvane::grvelk
