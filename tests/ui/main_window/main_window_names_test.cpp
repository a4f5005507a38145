// What a screen reader says of the main window's controls.
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

// The label before a control in the order of the windows, which names a control that shows no text
// of its own.
std::string LabelBefore(HWND control) {
    const HWND label = GetWindow(control, GW_HWNDPREV);
    wchar_t className[32] = L"";
    GetClassNameW(label, className, 32);
    if (lstrcmpiW(className, WC_STATICW) != 0) return "no label";
    return test::Narrow(WindowText(label));
}

TEST(MainWindowNames, ControlsWithACaptionAreNamedByIt) {
    const OpenWindow open;
    const struct {
        int id;
        const char* name;
    } controls[] = {{Command1, "Open..."},
                    {OP_Preview, "Preview"},
                    {BT_Open, "Edit"},
                    {BT_Rule, "Rule"},
                    {BT_Bsd, "Basic Data"},
                    {GR_Rule, "Rule set"},
                    {OP_Rule, "QUOR"},
                    {OP_Rule + 1, "CSR for BC"},
                    {OP_Rule + 2, "QUOR MIL"},
                    {PIC_Section, "Preview of the section"},
                    {SP_Sections, "Divider between the models and the preview"},
                    {LB_Count, "14 models"},
                    {LB_X, "X = 20.7 m"},
                    {LB_Frame, "Frame : 30"}};
    for (const auto& control : controls) {
        EXPECT_EQ(test::Narrow(NameOf(open.Control(control.id))), control.name) << control.id;
    }
}

TEST(MainWindowNames, FieldAndListHaveTheirLabelsBefore) {
    const OpenWindow open;
    EXPECT_EQ(LabelBefore(open.Control(TX_DataBase)), "&Database:");
    EXPECT_EQ(LabelBefore(open.Control(TX_Filter)), "Fi&nd:");
    EXPECT_EQ(LabelBefore(open.Control(LI_Sections)), "&Models:");
    EXPECT_EQ(open.Text(LI_Sections), "Models");
}

TEST(MainWindowNames, NoControlThatTakesTheFocusIsNameless) {
    const OpenWindow open;
    for (HWND control = GetWindow(open.window, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        if ((GetWindowLongPtrW(control, GWL_STYLE) & WS_TABSTOP) == 0) continue;
        EXPECT_NE(NameOf(control), L"") << GetDlgCtrlID(control);
    }
}

}  // namespace
}  // namespace corvane
