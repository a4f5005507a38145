#include "bsd/frames.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

// No frame is looked for beyond this distance [m].
constexpr double kFarthest = 1E+38;

int ZoneCount(const BasicShipData& bsd) {
    return std::clamp<int>(bsd.FrameZoneCount, 0, bsd.ZoneSpacing.kCount);
}

// Distance [m] from the frame before to `frame`: the spacing of the first zone that holds it.
double Spacing(const BasicShipData& bsd, int frame) {
    for (int zone = 1; zone <= ZoneCount(bsd); ++zone) {
        if (frame > bsd.FrameNumbers(zone - 1) && frame <= bsd.FrameNumbers(zone)) {
            return bsd.ZoneSpacing(zone);
        }
    }
    return 0;
}

}  // namespace

double FrameX(const BasicShipData& bsd, int frame) {
    double x = bsd.FrameZeroX;
    for (int f = 1; f <= frame; ++f) x += Spacing(bsd, f);
    for (int f = -1; f >= frame; --f) x -= Spacing(bsd, f + 1);
    return x;
}

NearestFrameResult NearestFrame(const BasicShipData& bsd, double x) {
    if (ZoneCount(bsd) == 0) return {};
    const int first = bsd.FrameNumbers(0);
    const int last = bsd.FrameNumbers(ZoneCount(bsd));
    NearestFrameResult nearest{false, 0, kFarthest};
    const auto consider = [&](int frame, double frameX) {
        if (frame < first || frame > last) return;
        const double distance = std::fabs(frameX - x);
        const bool tie = nearest.found && distance == nearest.distance;
        if (distance < nearest.distance || (tie && frame < nearest.frame)) {
            nearest = {true, frame, distance};
        }
    };
    // From frame 0 in both directions, so that every frame's x is summed as in FrameX.
    double frameX = bsd.FrameZeroX;
    consider(0, frameX);
    for (int frame = 1; frame <= last; ++frame) consider(frame, frameX += Spacing(bsd, frame));
    frameX = bsd.FrameZeroX;
    for (int frame = -1; frame >= first; --frame) {
        consider(frame, frameX -= Spacing(bsd, frame + 1));
    }
    return nearest.found ? nearest : NearestFrameResult();
}

}  // namespace corvane
