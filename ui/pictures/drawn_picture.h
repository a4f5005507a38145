// Small square pictures that are drawn by code, so that they are crisp at every resolution: lines
// and areas whose edges are smoothed, on a transparent ground.
#pragma once

#include <span>
#include <vector>

#include "ui/base/controls.h"

namespace corvane {

// In units of the picture, from its upper left corner.
struct PicturePoint {
    double x, y;
};

struct DrawnPicture {
    struct Pixel {
        float red, green, blue, opacity;  // 0 to 1; the colours times the opacity
    };
    int size;                   // pixels on a side
    double scale;               // pixels of a unit
    double left = 0, top = 0;   // pixels of the point (0, 0)
    std::vector<Pixel> pixels;  // rows from the top
};

// A colour that removes what is there.
inline constexpr COLORREF kErase = 0xFFFFFFFF;

// An empty picture that is `units` wide and high.
DrawnPicture NewPicture(int size, int units);

// Draws a line of `width` units with round ends through the points.
void Stroke(DrawnPicture& picture, std::span<const PicturePoint> points, double width,
            COLORREF colour);
// Fills the area within the points.
void Fill(DrawnPicture& picture, std::span<const PicturePoint> outline, COLORREF colour);

// Appends the picture to a list of 32-bit icons of its height. In a wider list it is at the left.
void AddPicture(HIMAGELIST icons, const DrawnPicture& picture);

}  // namespace corvane
