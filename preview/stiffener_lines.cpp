#include "preview/stiffener_lines.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "preview/section_geometry.h"

namespace corvane {
namespace {

constexpr int kMostInRow = 2000;
constexpr int kMostStiffeners = 20000;

using Lines = std::function<void(const StiffenerPlace&, std::span<const ShipPoint>)>;

// Lengths of a profile as it is drawn [m]: of the web, and of the flange on each side of it.
struct Profile {
    double web;
    double flangeAlong;    // towards the strake's end
    double flangeAgainst;  // towards its start
};

// What is not a number is drawn as the least that can be seen.
double Visible(double length_mm, double least_m) {
    return length_mm / 1000 > least_m ? length_mm / 1000 : least_m;
}

Profile ProfileOf(const Stiffener& stiffener, const LeastProfile& least) {
    // A bulb is a fifth of its web, unless its size is given.
    const bool isPlainBulb = stiffener.profile == kProfileBulb && !(stiffener.flangeBreadth_mm > 0);
    const double breadth_mm = isPlainBulb ? stiffener.webHeight_mm / 5 : stiffener.flangeBreadth_mm;
    Profile profile{Visible(stiffener.webHeight_mm, least.web), 0, 0};
    if (stiffener.profile == kProfileTee) {
        profile.flangeAlong = profile.flangeAgainst = Visible(breadth_mm / 2, least.flange);
    } else if (stiffener.profile == kProfileAngle || stiffener.profile == kProfileBulb) {
        (stiffener.mirrored != 0 ? profile.flangeAgainst : profile.flangeAlong) =
            Visible(breadth_mm, least.flange);
    }
    return profile;
}

void GiveLines(const StiffenerPlace& place, const StrakeSpot& foot, ShipPoint normal,
               const Profile& profile, const Lines& use) {
    const ShipPoint top = Moved(foot.at, normal, profile.web);
    const ShipPoint along = Moved(top, foot.direction, profile.flangeAlong);
    const ShipPoint against = Moved(top, foot.direction, -profile.flangeAgainst);
    if (profile.flangeAlong > 0 && profile.flangeAgainst > 0) {
        use(place, std::array{foot.at, top});
        use(place, std::array{against, along});
    } else if (profile.flangeAlong > 0 || profile.flangeAgainst > 0) {
        use(place, std::array{foot.at, top, profile.flangeAlong > 0 ? along : against});
    } else {
        use(place, std::array{foot.at, top});
    }
}

// The stiffeners of a row, `most` at most. `place` has the strake and the row. Returns how many.
int WalkRow(const Strake& strake, const Stiffener& row, int most, const LeastProfile& least,
            StiffenerPlace place, const Lines& use) {
    StrakeSpot foot{};
    // The normal of a row that was not computed has no length.
    const double normalLength = std::hypot(row.normalY, row.normalZ);
    if (!(normalLength > 0.5 && normalLength < 2) || !FindSpot(strake, row.s, foot)) return 0;
    const Profile profile = ProfileOf(row, least);
    const double left = foot.direction.y * row.normalZ - foot.direction.z * row.normalY;
    const double side = left < 0 ? -1 : 1;
    const int count = std::min<int>({row.count, row.spacing > 0 ? kMostInRow : 1, most});
    for (int i = 0; i < count; ++i) {
        place.inRow = i + 1;
        place.s = row.s + i * double{row.spacing};
        if (i > 0 && !FindSpot(strake, place.s, foot)) return i;
        const ShipPoint normal{-foot.direction.z * side, foot.direction.y * side};
        GiveLines(place, foot, normal, profile, use);
    }
    return std::max(count, 0);
}

}  // namespace

void WalkStiffeners(const Section& section, const LeastProfile& least, const Lines& use) {
    int left = kMostStiffeners;
    StiffenerPlace place{};
    for (const Strake& strake : StrakesOf(section)) {
        ++place.strake;
        place.row = 0;
        for (const Stiffener& row : StiffenersOf(strake)) {
            ++place.row;
            left -= WalkRow(strake, row, left, least, place, use);
        }
    }
}

}  // namespace corvane
