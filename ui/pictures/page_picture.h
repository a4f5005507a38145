// A page of paper, drawn small in a window.
#pragma once

#include "platform/win32/win32.h"
#include "preview/figure.h"

namespace corvane {

// Keeps the page as it was drawn last, for the next time that the window is painted.
class PagePicture {
public:
    PagePicture() = default;
    ~PagePicture() { Forget(); }
    PagePicture(const PagePicture&) = delete;
    PagePicture& operator=(const PagePicture&) = delete;

    // Another page, or another size, from now on.
    void Forget();
    // White paper with a shadow in the middle of a grey area, as large as its breadth and height
    // less `around` at each side [px] let it.
    void Draw(HDC dc, const RECT& area, int around, const Figure& page);

private:
    HBITMAP paper_ = nullptr;
    SIZE size_{};
};

}  // namespace corvane
