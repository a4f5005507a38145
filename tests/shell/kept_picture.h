// A picture of 200 mm by 150 mm that keeps what is drawn in it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "preview/figure.h"
#include "preview/section_preview.h"

namespace corvane::test {

struct KeptPicture {
    Picture picture;
    Figure drawn{};
    int clearedCount = 0;

    KeptPicture() {
        picture.width = 200 * 1440 / 25.4F;
        picture.height = 150 * 1440 / 25.4F;
        picture.context = this;
        picture.clear = [](Picture& cleared) {
            ++static_cast<KeptPicture*>(cleared.context)->clearedCount;
        };
        picture.setFont = [](Picture&, float) {};
        picture.systemColour = [](int) { return int32_t{0}; };
        picture.drawFigure = [](Picture& on, const Figure& figure) {
            static_cast<KeptPicture*>(on.context)->drawn = figure;
        };
    }
    KeptPicture(const KeptPicture&) = delete;
    KeptPicture& operator=(const KeptPicture&) = delete;

    bool Says(const std::wstring& part) const {
        return std::ranges::any_of(drawn.texts, [&part](const std::wstring& text) {
            return text.find(part) != std::wstring::npos;
        });
    }
};

}  // namespace corvane::test
