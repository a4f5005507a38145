// The picture's own record, for the files that are the picture.
#pragma once

#include <optional>
#include <string>

#include "ui/pictures/section_picture.h"

namespace corvane {

// What the mouse does in the picture while its button is down.
struct PictureDrag {
    bool isHeld = false;
    bool isMoving = false;  // beyond the system's threshold: it moves the picture
    POINT from{};           // where the button went down, then where the picture was moved last
};

// Belongs to the window from its creation on, and goes with it.
struct PictureState {
    PictureContents source;
    bool isEmpty = true;
    std::wstring why;            // what an empty picture says
    HBITMAP contents = nullptr;  // what the window shows; all drawing goes here
    SIZE size{};                 // [px]
    Picture scale;               // user scale and view, kept from one drawing to the next
    PictureDrag drag;
    HWND toolTip = nullptr;
    std::optional<POINT> pointer;  // where it was last; nothing while it is elsewhere
    std::wstring pointedAt;        // what is under the pointer, in the tool tip
};

PictureState* PictureStateOf(HWND window);
// The section that the picture shows now; null without one.
SectionModel* ShownSection(const PictureState& state);

// Draws what the picture shows, for its view, and paints it at once.
void DrawPictureAgain(HWND window);

}  // namespace corvane
