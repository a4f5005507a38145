#include "ui/pictures/button_pictures.h"

#include <optional>

#include "ui/base/colours.h"
#include "ui/base/dpi.h"

namespace corvane {
namespace {

// Width and height of a picture, and what is between it and the button's edge [pixels at 96 dots
// per inch].
constexpr int kSize = 32;
constexpr int kMargin = 5;

// A list of the picture for each state of a button; the fourth is the disabled one.
HIMAGELIST CreateStates(PictureId id, int size) {
    constexpr int kStates = 6;
    constexpr int kDisabled = 3;
    const HIMAGELIST pictures = ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, kStates, 0);
    std::optional<COLORREF> colour;
    if (NeedsSystemColoursOnButtons()) colour = GetSysColor(COLOR_BTNTEXT);
    const HICON enabled = CreatePicture(id, {size, size}, colour);
    const HICON disabled = CreatePicture(id, {size, size}, GetSysColor(COLOR_GRAYTEXT));
    for (int i = 0; i < kStates; ++i) {
        ImageList_ReplaceIcon(pictures, -1, i == kDisabled ? disabled : enabled);
    }
    DestroyIcon(enabled);
    DestroyIcon(disabled);
    return pictures;
}

HIMAGELIST PictureOf(HWND button) {
    BUTTON_IMAGELIST shown{};
    const LRESULT done =
        SendMessageW(button, BCM_GETIMAGELIST, 0, reinterpret_cast<LPARAM>(&shown));
    return done != 0 ? shown.himl : nullptr;
}

}  // namespace

// A button of before version 6 of the common controls shows its caption alone.
void ShowButtonPicture(HWND button, PictureId id, UINT dpi) {
    const HIMAGELIST before = PictureOf(button);
    BUTTON_IMAGELIST picture{};
    picture.himl = CreateStates(id, Scaled(kSize, dpi));
    picture.margin = {Scaled(kMargin, dpi), 0, 0, 0};
    picture.uAlign = BUTTON_IMAGELIST_ALIGN_LEFT;
    const LRESULT taken =
        SendMessageW(button, BCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(&picture));
    if (before != nullptr) ImageList_Destroy(before);
    if (taken == 0) ImageList_Destroy(picture.himl);
    InvalidateRect(button, nullptr, TRUE);
}

void RemovePicture(HWND button) {
    const HIMAGELIST picture = PictureOf(button);
    if (picture != nullptr) ImageList_Destroy(picture);
}

}  // namespace corvane
