// What a screen reader says of the main window's controls that cannot have the focus.
#include <gtest/gtest.h>

#include <oleacc.h>

#include <string>

#include "tests/ui/main_window/open_window.h"

namespace corvane {
namespace {

using test::OpenWindow;

// The name of a control for screen readers, as the system makes it from the window.
std::wstring NameOf(HWND control) {
    IAccessible* object = nullptr;
    const HRESULT made = CreateStdAccessibleObject(control, OBJID_CLIENT, __uuidof(IAccessible),
                                                   reinterpret_cast<void**>(&object));
    EXPECT_EQ(made, S_OK);
    if (object == nullptr) return {};
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    BSTR name = nullptr;
    object->get_accName(self, &name);
    std::wstring text = name == nullptr ? L"" : name;
    SysFreeString(name);
    object->Release();
    return text;
}

TEST(MainWindowNames, WhatOnlyShowsSomethingIsNamedByItsText) {
    const OpenWindow open;
    const struct {
        int id;
        const char* name;
    } controls[] = {{GR_Rule, "Rule set"},
                    {PIC_Section, "Preview of the section"},
                    {LB_Count, "14 models"},
                    {LB_X, "X = 20.7 m"},
                    {LB_Frame, "Frame : 30"}};
    for (const auto& control : controls) {
        EXPECT_EQ(test::Narrow(NameOf(open.Control(control.id))), control.name) << control.id;
    }
    EXPECT_EQ(open.Text(LI_Sections), "Models") << "and the label before it says so";
}

}  // namespace
}  // namespace corvane
