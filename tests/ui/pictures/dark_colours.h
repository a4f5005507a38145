// The colours of a dark scheme for high contrast, for as long as the record lives.
#pragma once

#include <array>

#include "platform/win32/win32.h"

namespace corvane::test {

struct DarkColours {
    static constexpr std::array<INT, 5> kElements = {COLOR_WINDOW, COLOR_WINDOWTEXT, COLOR_BTNFACE,
                                                     COLOR_BTNTEXT, COLOR_GRAYTEXT};
    static constexpr std::array<COLORREF, 5> kDark = {RGB(0, 0, 0), RGB(255, 255, 0), RGB(0, 0, 0),
                                                      RGB(255, 255, 255), RGB(0, 255, 0)};
    std::array<COLORREF, 5> before{};

    DarkColours() {
        for (size_t i = 0; i < before.size(); ++i) before[i] = GetSysColor(kElements[i]);
        Set(kDark);
    }
    ~DarkColours() { Set(before); }
    DarkColours(const DarkColours&) = delete;
    DarkColours& operator=(const DarkColours&) = delete;

private:
    static void Set(const std::array<COLORREF, 5>& colours) {
        SetSysColors(static_cast<int>(colours.size()), kElements.data(), colours.data());
    }
};

}  // namespace corvane::test
