#include "tests/ui/keyboard.h"

#include <vector>

#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

// Milliseconds after which a key that had no effect is pressed again.
constexpr ULONGLONG kNextTry = 3000;

void Add(std::vector<INPUT>& inputs, WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    // The keys that are apart from the number pad.
    const bool apart = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
    if (apart) input.ki.dwFlags |= KEYEVENTF_EXTENDEDKEY;
    inputs.push_back(input);
}

void Press(std::vector<INPUT>& inputs, WORD key) {
    Add(inputs, key, 0);
    Add(inputs, key, KEYEVENTF_KEYUP);
}

void PressLetter(std::vector<INPUT>& inputs, wchar_t letter) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = letter;
    input.ki.dwFlags = KEYEVENTF_UNICODE;
    inputs.push_back(input);
    input.ki.dwFlags |= KEYEVENTF_KEYUP;
    inputs.push_back(input);
}

void SendAll(std::vector<INPUT>& inputs) {
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

void TypeWith(WORD modifier, WORD key) {
    std::vector<INPUT> inputs;
    Add(inputs, modifier, 0);
    Press(inputs, key);
    Add(inputs, modifier, KEYEVENTF_KEYUP);
    SendAll(inputs);
}

void TypeWithShiftAnd(WORD modifier, WORD key) {
    std::vector<INPUT> inputs;
    Add(inputs, modifier, 0);
    Add(inputs, VK_SHIFT, 0);
    Press(inputs, key);
    Add(inputs, VK_SHIFT, KEYEVENTF_KEYUP);
    Add(inputs, modifier, KEYEVENTF_KEYUP);
    SendAll(inputs);
}

// Whether a command of the main window has begun: a box keeps the user from the window, a program
// of the suite runs, or the window has gone.
bool IsAtWork(const Program& program) {
    const HWND main = program.FindNow(L"FM_Main");
    return main == nullptr || !IsWindowEnabled(main) ||
           !IsWindowEnabled(GetDlgItem(main, TX_DataBase));
}

// A pixel in the units of a mouse movement, 65536 for the whole screen.
LONG MouseUnits(LONG pixel, int screenMetric) {
    constexpr LONG kWhole = 65536;
    return (pixel * kWhole + kWhole / 2) / GetSystemMetrics(screenMetric);
}

// Moves the mouse and then does what the flags say, as one event: a late report of an earlier
// movement, which the display makes in its own time, can't come between.
void SendMouse(POINT at, DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = MouseUnits(at.x, SM_CXSCREEN);
    input.mi.dy = MouseUnits(at.y, SM_CYSCREEN);
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | flags;
    SendInput(1, &input, sizeof(INPUT));
}

// Waits until the control has the mouse, or has it no longer.
bool HasMouse(HWND control, bool has) {
    return WaitUntil([&] {
        GUITHREADINFO information{};
        information.cbSize = sizeof information;
        GetGUIThreadInfo(GetWindowThreadProcessId(control, nullptr), &information);
        return (information.hwndCapture == control) == has;
    });
}

}  // namespace

bool TakesKeys(HWND window) {
    return WaitUntil([&] {
        SetForegroundWindow(window);
        return GetForegroundWindow() == window && FocusedControl(window) != 0;
    });
}

void Type(std::initializer_list<WORD> keys) {
    std::vector<INPUT> inputs;
    for (const WORD key : keys) Press(inputs, key);
    SendAll(inputs);
}

void TypeWithAlt(WORD key) {
    TypeWith(VK_MENU, key);
}

void TypeWithShift(WORD key) {
    TypeWith(VK_SHIFT, key);
}

void TypeWithAltShift(WORD key) {
    TypeWithShiftAnd(VK_MENU, key);
}

void TypeWithControl(WORD key) {
    TypeWith(VK_CONTROL, key);
}

void TypeWithControlShift(WORD key) {
    TypeWithShiftAnd(VK_CONTROL, key);
}

bool PressUntil(WORD key, const std::function<bool()>& condition) {
    return RepeatUntil([key] { Type({key}); }, condition);
}

bool RepeatUntil(const std::function<void()>& act, const std::function<bool()>& condition) {
    ULONGLONG tried = 0;
    return WaitUntil([&] {
        if (condition()) return true;
        if (tried != 0 && GetTickCount64() < tried + kNextTry) return false;
        act();
        tried = GetTickCount64();
        return false;
    });
}

bool ChooseByKeys(const Program& program, WORD menu, WORD item) {
    if (!WaitUntil([&] { return !IsAtWork(program); })) return false;
    ULONGLONG tried = 0;
    bool menuWasOpen = false;
    return WaitUntil([&] {
        if (IsAtWork(program)) return true;
        const bool menuIsOpen = program.FindNow(L"#32768") != nullptr;
        const bool hasOpened = menuIsOpen && !menuWasOpen;
        if (tried != 0 && !hasOpened && GetTickCount64() < tried + kNextTry) return false;
        if (menuIsOpen) {
            Type({item});
        } else {
            if (tried != 0) Type({VK_HOME});
            TypeWithAlt(menu);
        }
        tried = GetTickCount64();
        menuWasOpen = menuIsOpen;
        return false;
    });
}

void TypeText(std::wstring_view text) {
    std::vector<INPUT> inputs;
    for (const wchar_t letter : text) {
        if (letter == L'\n') {
            Press(inputs, VK_RETURN);
        } else {
            PressLetter(inputs, letter);
        }
    }
    SendAll(inputs);
}

int FocusedControl(HWND window) {
    const HWND focus = FocusOf(window);
    return focus == nullptr ? 0 : GetDlgCtrlID(focus);
}

bool FocusBecomes(HWND window, int control) {
    return WaitUntil([&] { return FocusedControl(window) == control; });
}

bool BeginDrag(HWND control, POINT from) {
    SendMouse(from, MOUSEEVENTF_LEFTDOWN);
    return HasMouse(control, true);
}

void MoveMouse(POINT to) {
    SendMouse(to, 0);
}

bool EndDrag(HWND control, POINT at) {
    SendMouse(at, MOUSEEVENTF_LEFTUP);
    return HasMouse(control, false);
}

void Click(POINT at) {
    SendMouse(at, MOUSEEVENTF_LEFTDOWN);
    SendMouse(at, MOUSEEVENTF_LEFTUP);
}

void RightClick(POINT at) {
    SendMouse(at, MOUSEEVENTF_RIGHTDOWN);
    SendMouse(at, MOUSEEVENTF_RIGHTUP);
}

void ClickWithControl(POINT at) {
    std::vector<INPUT> inputs;
    Add(inputs, VK_CONTROL, 0);
    SendAll(inputs);
    Click(at);
    inputs.clear();
    Add(inputs, VK_CONTROL, KEYEVENTF_KEYUP);
    SendAll(inputs);
}

void DoubleClick(POINT at) {
    Click(at);
    Click(at);
}

void TurnWheel(POINT at, int steps) {
    MoveMouse(at);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_WHEEL;
    input.mi.mouseData = static_cast<DWORD>(steps * WHEEL_DELTA);
    SendInput(1, &input, sizeof input);
}

}  // namespace corvane::ui
