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

FrameTable FramesOf(const BasicShipData& bsd) {
    FrameTable frames;
    if (ZoneCount(bsd) == 0) return frames;
    const int first = bsd.FrameNumbers(0);
    const int last = bsd.FrameNumbers(ZoneCount(bsd));
    const auto add = [&](int frame, double x) {
        if (frame >= first && frame <= last && std::isfinite(x)) frames.push_back({x, frame});
    };
    // From frame 0 in both directions, so that every frame's x is summed as in FrameX.
    double x = bsd.FrameZeroX;
    add(0, x);
    for (int frame = 1; frame <= last; ++frame) add(frame, x += Spacing(bsd, frame));
    x = bsd.FrameZeroX;
    for (int frame = -1; frame >= first; --frame) add(frame, x -= Spacing(bsd, frame + 1));
    std::ranges::sort(frames);
    return frames;
}

NearestFrameResult NearestFrame(const FrameTable& frames, double x) {
    NearestFrameResult nearest{false, 0, kFarthest};
    const auto consider = [&](FrameTable::const_iterator frame) {
        const double distance = std::fabs(frame->x - x);
        const bool tie = nearest.found && distance == nearest.distance;
        if (distance < nearest.distance || (tie && frame->number < nearest.frame)) {
            nearest = {true, frame->number, distance};
        }
    };
    const auto fore = std::ranges::lower_bound(frames, x, {}, &Frame::x);
    if (fore != frames.end()) consider(fore);
    // The first of those that are at the place before.
    if (fore != frames.begin()) {
        consider(std::ranges::lower_bound(frames, (fore - 1)->x, {}, &Frame::x));
    }
    return nearest.found ? nearest : NearestFrameResult();
}

NearestFrameResult NearestFrame(const BasicShipData& bsd, double x) {
    return NearestFrame(FramesOf(bsd), x);
}

}  // namespace corvane
