#include "ui/main_window/accelerators.h"

#include <cwchar>
#include <vector>

#include "shell/commands/commands.h"
#include "ui/base/control_ids.h"
#include "ui/base/keys.h"

namespace corvane {
namespace {

// A field that only shows a text does not type.
bool IsTextField(HWND control) {
    constexpr int kLongestClass = 16;
    wchar_t name[kLongestClass] = L"";
    GetClassNameW(control, name, kLongestClass);
    return _wcsicmp(name, L"Edit") == 0 &&
           (GetWindowLongPtrW(control, GWL_STYLE) & ES_READONLY) == 0;
}

FocusOn FocusOf(HWND control) {
    if (GetDlgCtrlID(control) == LI_Sections) return FocusOn::kList;
    return IsTextField(control) ? FocusOn::kTextField : FocusOn::kOther;
}

}  // namespace

HACCEL CreateKeys() {
    std::vector<ACCEL> keys;
    for (const Command& command : Commands()) {
        if (command.key.code == kNoKey) continue;
        BYTE flags = FVIRTKEY;
        if (command.key.control) flags |= FCONTROL;
        if (command.key.shift) flags |= FSHIFT;
        if (command.key.alt) flags |= FALT;
        keys.push_back({flags, command.key.code, command.id});
    }
    return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

bool RunKey(HWND window, HACCEL keys, MSG& message) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
    const Command* command = FindCommand(KeyOf(message));
    if (command != nullptr && !Acts(command->key, FocusOf(message.hwnd))) return false;
    return TranslateAcceleratorW(window, keys, &message) != 0;
}

}  // namespace corvane
