// Identifiers of the main window's controls; tests and screen readers find them by these. Menu
// items have theirs in ui/commands/commands.h.
#pragma once

namespace corvane {

enum ControlId : int {
    TX_DataBase = 1000,
    Command1,
    LI_Sections,
    LB_X,
    LB_Frame,
    PAN_Help,
    LB_DataBase,  // names TX_DataBase
    LN_Status,    // the line above PAN_Help
    PIC_Section,
    OP_Preview,
    LB_Models,    // names LI_Sections
    SP_Sections,  // between LI_Sections and PIC_Section
    BT_Open,
    BT_Rule,
    BT_Bsd,
    GR_Rule,  // around OP_Rule
    OP_Rule,  // the first of kRuleSetCount options
    LB_Title = 1100,
    LB_Version,
};

inline constexpr int kRuleSetCount = 3;

// Window classes.
inline constexpr wchar_t kMainWindowClass[] = L"FM_Main";
inline constexpr wchar_t kSectionPictureClass[] = L"PIC_Section";
inline constexpr wchar_t kSplitterClass[] = L"SP_Sections";
inline constexpr wchar_t kSplashClass[] = L"FM_Load";

}  // namespace corvane
