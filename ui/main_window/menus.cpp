#include "ui/main_window/menus.h"

#include <cwchar>

#include "shell/commands/commands.h"
#include "shell/recent_databases.h"

namespace corvane {
namespace {

HMENU CreatePopup(Menu menu) {
    const HMENU popup = CreatePopupMenu();
    for (const Command& command : Commands()) {
        if (command.menu != menu) continue;
        if (command.id == 0) {
            AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
        } else {
            AppendMenuW(popup, MF_STRING, command.id, CaptionNow(command).c_str());
        }
    }
    return popup;
}

wchar_t Upper(wchar_t letter) {
    CharUpperBuffW(&letter, 1);
    return letter;
}

// The letter of a top menu that follows "&", as a capital; 0 without one.
wchar_t KeyboardLetter(HMENU bar, int position) {
    wchar_t caption[64] = L"";
    GetMenuStringW(bar, static_cast<UINT>(position), caption, 64, MF_BYPOSITION);
    const wchar_t* mark = std::wcschr(caption, L'&');
    return mark == nullptr ? L'\0' : Upper(mark[1]);
}

void SetItemText(HMENU menu, UINT which, bool isPosition, std::wstring text) {
    MENUITEMINFOW item{};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_STRING;
    item.dwTypeData = text.data();
    SetMenuItemInfoW(menu, which, isPosition ? TRUE : FALSE, &item);
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
    SetItemText(GetMenu(window), static_cast<UINT>(Menu::kSection), true, text);
    DrawMenuBar(window);
}

void UpdateMenus(HWND window, bool locked) {
    const HMENU bar = GetMenu(window);
    for (const Command& command : Commands()) {
        if (command.id == 0) continue;
        const bool enabled = !locked && IsEnabled(command);
        EnableMenuItem(bar, command.id, MF_BYCOMMAND | Greyed(enabled));
        const bool isChecked = command.isChecked != nullptr && command.isChecked();
        CheckMenuItem(bar, command.id, MF_BYCOMMAND | (isChecked ? MF_CHECKED : MF_UNCHECKED));
        if (command.menu == Menu::kEdit) SetItemText(bar, command.id, false, CaptionNow(command));
    }
    for (int i = 0; i < kMenuCount; ++i) {
        const bool enabled = !locked && IsMenuEnabled(static_cast<Menu>(i));
        EnableMenuItem(bar, static_cast<UINT>(i), MF_BYPOSITION | Greyed(enabled));
    }
    DrawMenuBar(window);
}

void ShowRecent(HWND window, HMENU opened) {
    if (opened != GetSubMenu(GetMenu(window), static_cast<int>(Menu::kFile))) return;
    constexpr UINT kSeparator = ME_FileRecent + kRecentCount;
    for (UINT id = ME_FileRecent; id <= kSeparator; ++id) DeleteMenu(opened, id, MF_BYCOMMAND);
    UINT id = ME_FileRecent;
    for (const RecentItem& item : RecentItems()) {
        InsertMenuW(opened, ME_FileQuit, MF_BYCOMMAND | MF_STRING | Greyed(item.isThere), id++,
                    item.caption.c_str());
    }
    if (id == ME_FileRecent) return;
    InsertMenuW(opened, ME_FileQuit, MF_BYCOMMAND | MF_SEPARATOR, kSeparator, nullptr);
}

bool OpensTopMenu(HWND window, const MSG& message) {
    if (message.message != WM_SYSCHAR) return false;
    const auto letter = static_cast<wchar_t>(message.wParam);
    for (int i = 0; i < kMenuCount; ++i) {
        if (KeyboardLetter(GetMenu(window), i) == Upper(letter)) return true;
    }
    return false;
}

}  // namespace corvane
