#include "ui/base/keys.h"

namespace corvane {
namespace {

static_assert(kLeftKey == VK_LEFT && kDownKey == VK_DOWN && kEnterKey == VK_RETURN &&
              kDeleteKey == VK_DELETE && kF1Key == VK_F1 && kF6Key == VK_F6);

bool IsHeld(int key) {
    return GetKeyState(key) < 0;
}

}  // namespace

Key KeyOf(const MSG& message) {
    return {.code = static_cast<uint16_t>(message.wParam),
            .control = IsHeld(VK_CONTROL),
            .shift = IsHeld(VK_SHIFT),
            .alt = IsHeld(VK_MENU)};
}

}  // namespace corvane
