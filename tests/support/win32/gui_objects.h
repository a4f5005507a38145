// How many objects of the drawing and of the window system this process has: what is made and not
// given back is seen in them.
#pragma once

#include <winternl.h>

#include "platform/win32/win32.h"

namespace corvane::test {

struct GuiObjects {
    int drawing = 0;
    int window = 0;
    bool operator==(const GuiObjects&) const = default;
};

// The process's table of pens, brushes, fonts, bitmaps ..., which the system shows it.
inline int CountDrawingObjects() {
    struct Entry {
        ULONG64 object;
        ULONG owner;
        USHORT reuse;
        UCHAR type;  // 0: not in use
        UCHAR flags;
        ULONG64 data;
    };
    constexpr size_t kEntries = 0x4000;
    constexpr size_t kTablePlace = sizeof(void*) == 8 ? 0xF8 : 0x94;
    const auto* const process = reinterpret_cast<char*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const auto* const table = *reinterpret_cast<Entry* const*>(process + kTablePlace);
    int count = 0;
    for (size_t i = 0; table != nullptr && i < kEntries; ++i) count += table[i].type != 0 ? 1 : 0;
    return count;
}

inline BOOL CALLBACK CountWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

inline BOOL CALLBACK CountWindows(HWND window, LPARAM count) {
    EnumChildWindows(window, CountWindow, count);
    return CountWindow(window, count);
}

// Windows of this thread, menus and icons; each is found by the low half of its handle.
inline int CountWindowObjects() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountWindows, reinterpret_cast<LPARAM>(&count));
    for (UINT_PTR handle = 0x20; handle < 0xFFFF; handle += 2) {
        ICONINFO info{};
        if (IsMenu(reinterpret_cast<HMENU>(handle))) ++count;
        if (!GetIconInfo(reinterpret_cast<HICON>(handle), &info)) continue;
        ++count;
        DeleteObject(info.hbmMask);
        DeleteObject(info.hbmColor);
    }
    return count;
}

// As the system counts them; where it does not, as we do.
inline GuiObjects CountGuiObjects() {
    const HANDLE process = GetCurrentProcess();
    const GuiObjects objects{static_cast<int>(GetGuiResources(process, GR_GDIOBJECTS)),
                             static_cast<int>(GetGuiResources(process, GR_USEROBJECTS))};
    if (objects.drawing != 0) return objects;
    return {CountDrawingObjects(), CountWindowObjects()};
}

}  // namespace corvane::test
