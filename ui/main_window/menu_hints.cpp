#include "ui/main_window/menu_hints.h"

#include <string>

#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "ui/base/dpi.h"
#include "ui/main_window/main_window_state.h"

namespace corvane {
namespace {

std::wstring HintFor(UINT item, UINT flags) {
    const bool isGreyed = (flags & (MF_GRAYED | MF_DISABLED)) != 0;
    const bool isItem = (flags & (MF_POPUP | MF_SYSMENU)) == 0;
    const Command* command = isItem ? FindCommand(static_cast<uint16_t>(item)) : nullptr;
    return isGreyed && command != nullptr ? WhyDisabled(*command) : std::wstring();
}

}  // namespace

void OnMenuSelect(HWND window, UINT item, UINT flags) {
    // All bits, without a menu: it has closed.
    ShowHint(window, flags == 0xFFFF ? std::wstring() : HintFor(item, flags));
}

void ShowHint(HWND window, const std::wstring& hint) {
    MainWindowState& state = *StateOfMainWindow(window);
    const std::wstring shown = WindowText(GetDlgItem(window, PAN_Help));
    // Something else has been reported over the hint.
    if (!state.hint.empty() && shown != state.hint) state.hint.clear();
    if (state.hint.empty() && !hint.empty()) {
        state.statusBeforeHint = shown;
        state.colourBeforeHint = state.statusColour;
    }
    if (!hint.empty()) {
        reportView.setStatusColour(StatusColour::kButtonText);
        reportView.setStatusCaption(hint);
    } else if (!state.hint.empty()) {
        reportView.setStatusColour(state.colourBeforeHint);
        reportView.setStatusCaption(state.statusBeforeHint);
    }
    state.hint = hint;
}

}  // namespace corvane
