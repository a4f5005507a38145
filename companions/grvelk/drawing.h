// What a section is drawn on: a record of drawing procedures over the pixels of a frame. The twin
// folders fill it in: from a device context on Windows; on the host the device handle of
// ScaleWindow and TraceSection is itself the address of a Drawing, so that a test sees every line.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/grvelk.h"

namespace corvane::grvelk {

// Column and row from the frame's upper left corner, y downwards. Laid out as the system's POINT.
struct Pixel {
    int32_t x, y;
    bool operator==(const Pixel&) const = default;
};

struct Pen {
    int32_t colour;  // 0x00BBGGRR
    int32_t width;   // [px] 1 or more
};

// Polylines one after the other: each has as many points, 2 or more, as its count says.
struct PixelLines {
    const Pixel* points;
    const uint32_t* counts;
    size_t lineCount;
};

struct Drawing {
    void* context;          // handed to each procedure
    int32_t width, height;  // [px] of the frame
    int32_t dotsPerInch;    // 96: lines of their plain width
    void (*lines)(void* context, const PixelLines& lines, Pen pen);
    void (*fill)(void* context, const Pixel* corners, size_t count, int32_t colour);
    // `at` is the middle of the text.
    void (*text)(void* context, Pixel at, const char* text, int32_t colour);
};

// Prepares drawing on a device context whose frame is the client area of the window, or the whole
// bitmap when there is no window. False without a device or with an empty frame.
bool OpenDrawing(WindowHandle window, DeviceHandle dc, Drawing& drawing);
// Leaves the device context as OpenDrawing found it.
void CloseDrawing(const Drawing& drawing);

}  // namespace corvane::grvelk
