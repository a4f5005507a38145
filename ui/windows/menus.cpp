#include "ui/windows/menus.h"

#include "ui/commands/main_window.h"

namespace corvane {
namespace {

HMENU CreatePopup(Menu menu) {
    const HMENU popup = CreatePopupMenu();
    for (const Command& command : Commands()) {
        if (command.menu != menu) continue;
        if (command.id == 0) {
            AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
        } else {
            AppendMenuW(popup, MF_STRING, command.id, command.caption);
        }
    }
    return popup;
}

UINT Greyed(bool enabled) {
    return enabled ? MF_ENABLED : MF_GRAYED;
}

}  // namespace

HMENU CreateMenuBar() {
    const HMENU bar = CreateMenu();
    for (int i = 0; i < kMenuCount; ++i) {
        const auto menu = static_cast<Menu>(i);
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(CreatePopup(menu)),
                    MenuCaption(menu));
    }
    return bar;
}

void SetSectionMenuText(HWND window, const std::wstring& text) {
    std::wstring caption = text;
    MENUITEMINFOW item{};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_STRING;
    item.dwTypeData = caption.data();
    SetMenuItemInfoW(GetMenu(window), static_cast<UINT>(Menu::kSection), TRUE, &item);
    DrawMenuBar(window);
}

void UpdateMenus(HWND window, bool rowSelected) {
    const HMENU bar = GetMenu(window);
    for (const Command& command : Commands()) {
        if (command.id == 0) continue;
        EnableMenuItem(bar, command.id, MF_BYCOMMAND | Greyed(IsEnabled(command, rowSelected)));
    }
    for (int i = 0; i < kMenuCount; ++i) {
        const bool enabled = IsMenuEnabled(static_cast<Menu>(i));
        EnableMenuItem(bar, static_cast<UINT>(i), MF_BYPOSITION | Greyed(enabled));
    }
    DrawMenuBar(window);
}

}  // namespace corvane
