#include "tests/ui/accessible.h"

#include <gtest/gtest.h>
#include <oleacc.h>

#include <algorithm>
#include <cwchar>
#include <map>
#include <utility>

#include "tests/support/support.h"
#include "tests/ui/driver.h"

namespace corvane::ui {
namespace {

VARIANT Self() {
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
}

std::wstring TakeText(BSTR text) {
    std::wstring taken = text == nullptr ? L"" : text;
    SysFreeString(text);
    return taken;
}

std::wstring WithoutLetterMark(std::wstring text) {
    std::erase(text, L'&');
    return text;
}

LONG TakeNumber(const VARIANT& number) {
    return number.vt == VT_I4 ? number.lVal : 0;
}

Accessible Describe(HWND window) {
    Accessible described;
    described.window = window;
    IAccessible* object = nullptr;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                               reinterpret_cast<void**>(&object));
    if (object == nullptr) return described;
    BSTR text = nullptr;
    if (SUCCEEDED(object->get_accName(Self(), &text))) {
        described.name = WithoutLetterMark(TakeText(text));
    }
    text = nullptr;
    if (SUCCEEDED(object->get_accValue(Self(), &text))) described.value = TakeText(text);
    VARIANT number{};
    if (SUCCEEDED(object->get_accRole(Self(), &number))) described.role = TakeNumber(number);
    number = {};
    if (SUCCEEDED(object->get_accState(Self(), &number))) described.state = TakeNumber(number);
    object->Release();
    return described;
}

// The windows of a window's children, as its proxy enumerates them.
std::vector<HWND> ChildWindows(HWND window) {
    std::vector<HWND> windows;
    IAccessible* object = nullptr;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                               reinterpret_cast<void**>(&object));
    if (object == nullptr) return windows;
    LONG count = 0;
    object->get_accChildCount(&count);
    std::vector<VARIANT> children(static_cast<size_t>(count));
    AccessibleChildren(object, 0, count, children.data(), &count);
    for (LONG i = 0; i < count; ++i) {
        VARIANT& child = children[static_cast<size_t>(i)];
        IAccessible* accessible = nullptr;
        if (child.vt == VT_DISPATCH && child.pdispVal != nullptr) {
            child.pdispVal->QueryInterface(__uuidof(IAccessible),
                                           reinterpret_cast<void**>(&accessible));
        }
        HWND found = nullptr;
        if (accessible != nullptr) {
            WindowFromAccessibleObject(accessible, &found);
            accessible->Release();
        }
        if (found != nullptr) windows.push_back(found);
        VariantClear(&child);
    }
    object->Release();
    return windows;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

bool IsClass(HWND window, const wchar_t* name) {
    return _wcsicmp(ClassOf(window).c_str(), name) == 0;
}

// A button that is a frame around others takes no keys.
bool IsGroup(HWND window) {
    return IsClass(window, L"Button") &&
           (GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

// An option has the tab key's style only while it is chosen.
bool CanHaveKeyboard(HWND window) {
    if (!IsWindowVisible(window) || IsGroup(window)) return false;
    const bool isStop = (GetWindowLongPtrW(window, GWL_STYLE) & WS_TABSTOP) != 0;
    return isStop || IsClass(window, L"Button");
}

// What shows no caption of its own.
bool IsNamedByLabel(HWND window) {
    return std::ranges::any_of(
        std::initializer_list<const wchar_t*>{L"Edit", L"ListBox", L"ComboBox", L"SysListView32"},
        [window](const wchar_t* name) { return IsClass(window, name); });
}

std::wstring LabelBefore(HWND window) {
    const HWND label = GetWindow(window, GW_HWNDPREV);
    return IsClass(label, L"Static") ? WithoutLetterMark(TextOf(label)) : std::wstring();
}

}  // namespace

std::vector<Accessible> FocusableControls(HWND window) {
    std::vector<Accessible> controls;
    for (const HWND child : ChildWindows(window)) {
        if (!CanHaveKeyboard(child)) continue;
        Accessible control = Describe(child);
        if (IsNamedByLabel(child)) control.name = LabelBefore(child);
        controls.push_back(std::move(control));
    }
    return controls;
}

void ExpectNamedControls(HWND window) {
    const std::string where = test::Narrow(ClassOf(window));
    const std::vector<Accessible> controls = FocusableControls(window);
    EXPECT_FALSE(controls.empty()) << where;
    std::map<std::pair<std::wstring, LONG>, HWND> named;
    for (const Accessible& control : controls) {
        const int id = GetDlgCtrlID(control.window);
        EXPECT_NE(control.name, L"") << where << ": control " << id;
        const auto [other, isNew] = named.insert({{control.name, control.role}, control.window});
        EXPECT_TRUE(isNew) << where << ": controls " << GetDlgCtrlID(other->second) << " and " << id
                           << " are both '" << test::Narrow(control.name) << "'";
    }
}

}  // namespace corvane::ui
