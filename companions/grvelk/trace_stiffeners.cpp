// Stiffeners: each one of a row with its web and flange, to scale where that can be seen.
#include <algorithm>
#include <cmath>

#include "companions/grvelk/sketch.h"

namespace corvane::grvelk {
namespace {

constexpr double kStiffenerWidth_px = 1;
constexpr double kLeastWeb_px = 4;
constexpr double kLeastFlange_px = 2;  // on one side of the web
// More are not drawn, in a row or in the whole section: such counts come from damaged data.
constexpr int kMostInRow = 2000;
constexpr int kMostStiffeners = 20000;

// Lengths of a profile in the picture [m]: of the web, and of the flange on each side of it.
struct Profile {
    double web;
    double flangeAlong;    // towards the strake's end
    double flangeAgainst;  // towards its start
};

double Visible(const Sketch& sketch, double length_mm, double least_px) {
    const double least = ScaledToDevice(sketch, least_px) / sketch.mapping.pixelsPerMetre;
    // What is not a number is drawn as the least that can be seen.
    return length_mm / 1000 > least ? length_mm / 1000 : least;
}

Profile ProfileOf(const Sketch& sketch, const Stiffener& stiffener) {
    // A bulb is a fifth of its web, unless its size is given.
    const double breadth_mm = stiffener.profile == kProfileBulb && !(stiffener.flangeBreadth_mm > 0)
                                  ? stiffener.webHeight_mm / 5
                                  : stiffener.flangeBreadth_mm;
    Profile profile{Visible(sketch, stiffener.webHeight_mm, kLeastWeb_px), 0, 0};
    if (stiffener.profile == kProfileBulb || stiffener.profile == kProfileAngle) {
        const double flange = Visible(sketch, breadth_mm, kLeastFlange_px);
        (stiffener.mirrored != 0 ? profile.flangeAgainst : profile.flangeAlong) = flange;
    } else if (stiffener.profile == kProfileTee) {
        profile.flangeAlong = Visible(sketch, breadth_mm / 2, kLeastFlange_px);
        profile.flangeAgainst = profile.flangeAlong;
    }
    return profile;
}

void AddProfile(const Sketch& sketch, const StrakePlace& foot, Point normal, const Profile& profile,
                LineGroup& lines) {
    const Point top = foot.point + profile.web * normal;
    const auto onFlange = [&](double along) { return top + along * foot.direction; };
    ForEachSide(sketch, [&](double side) {
        const FramePoint webTop = MappedSide(sketch, side, top);
        std::vector<FramePoint> line{MappedSide(sketch, side, foot.point), webTop};
        const auto end = [&](double along) { return MappedSide(sketch, side, onFlange(along)); };
        if (profile.flangeAgainst > 0 && profile.flangeAlong > 0) {
            AddPolyline(lines, line);
            line = {end(-profile.flangeAgainst), webTop, end(profile.flangeAlong)};
        } else if (profile.flangeAgainst > 0 || profile.flangeAlong > 0) {
            line.push_back(end(profile.flangeAlong - profile.flangeAgainst));
        }
        AddPolyline(lines, line);
    });
}

// Every stiffener of the row, until one is beyond the strake's end. Returns how many.
int AddRow(const Sketch& sketch, const Strake& strake, const Stiffener& row, LineGroup& lines) {
    StrakePlace foot;
    const double normalLength = std::hypot(row.normalY, row.normalZ);
    // The normal of a row that was not computed has no length.
    if (!(normalLength > 0.5 && normalLength < 2) || !FindOnStrake(strake, row.s, foot)) return 0;
    const Profile profile = ProfileOf(sketch, row);
    const double toLeft = Cross(foot.direction, {row.normalY, row.normalZ}) >= 0 ? 1 : -1;
    const int count = std::min<int>(row.count, row.spacing > 0 ? kMostInRow : 1);
    for (int i = 0; i < count; ++i) {
        if (i > 0 && !FindOnStrake(strake, row.s + i * double{row.spacing}, foot)) return i;
        AddProfile(sketch, foot, toLeft * LeftOf(foot.direction), profile, lines);
    }
    return std::max(count, 0);
}

}  // namespace

void DrawStiffeners(const Sketch& sketch) {
    LineGroup lines{sketch.mapping, {}, {}};
    int drawn = 0;
    for (const Strake& strake : StrakesIn(sketch.section)) {
        for (const Stiffener& row : StiffenersIn(strake)) {
            if (drawn >= kMostStiffeners) break;
            drawn += AddRow(sketch, strake, row, lines);
        }
    }
    Stroke(lines, sketch.drawing, PenOf(sketch, kColourStiffener, kStiffenerWidth_px));
}

}  // namespace corvane::grvelk
