// The frame table: where the ship's frames are, from the zones of the Basic Ship Data.
#pragma once

#include <vector>

#include "bsd/basic_ship_data.h"

namespace corvane {

// Abscissa [m] of frame `frame`, summed in double precision from frame 0; frames outside of all
// zones add a spacing of 0.
double FrameX(const BasicShipData& bsd, int frame);

struct NearestFrameResult {
    bool found = false;  // false: the ship has no frames; the rest is then 0
    int frame = 0;
    double distance = 0;  // [m] |x of the frame - X|
};

// The frames of a ship from aft to fore, those at one place by their numbers.
struct Frame {
    double x = 0;  // [m]
    int number = 0;
    auto operator<=>(const Frame&) const = default;
};
using FrameTable = std::vector<Frame>;
FrameTable FramesOf(const BasicShipData& bsd);

// The frame nearest to the abscissa `x` [m]; of two equally near the lower number.
NearestFrameResult NearestFrame(const FrameTable& frames, double x);
NearestFrameResult NearestFrame(const BasicShipData& bsd, double x);

}  // namespace corvane
