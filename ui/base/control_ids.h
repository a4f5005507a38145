// Identifiers of the windows' controls; tests and screen readers find them by these. Menu items
// have theirs in shell/commands/commands.h.
#pragma once

namespace corvane {

enum ControlId : int {
    BT_Ok = 1,  // IDOK, which Enter presses
    BT_Cancel,  // IDCANCEL, which Esc presses
    TX_DataBase = 1000,
    Command1,
    LI_Sections,
    LB_X,
    LB_Frame,
    PAN_Help,
    LB_DataBase,  // names TX_DataBase
    SB_Status,    // below PAN_Help: the other parts and the grip
    PIC_Section,
    OP_Preview,
    LB_Models,    // names LI_Sections
    SP_Sections,  // between LI_Sections and PIC_Section
    BT_Open,
    BT_Rule,
    BT_Bsd,
    LB_Legend,  // above PIC_Section: what its lines are
    GR_Rule,    // around OP_Rule
    OP_Rule,    // the first of kRuleSetCount options
    // The filter of the list.
    LB_Filter = 1040,  // names TX_Filter
    TX_Filter,
    LB_Count,    // how many models the list shows
    LB_WhyGone,  // above LI_Sections while its database cannot be reached
    LB_Facts,    // names TX_Facts
    TX_Facts,    // beside or below PIC_Section
    // In the place of LI_Sections while no database is open.
    LB_Start = 1060,
    BT_StartOpen,
    BT_StartNew,
    BT_StartSample,
    LB_StartRecent,
    BT_StartRecent,  // the first of as many as there are recent databases
    // FM_Load and FM_About.
    LB_Title = 1100,
    LB_Version,
    LB_32bits,  // never shown
    LB_Warning1,
    LB_Warning2,
    IM_Velk,
    PAN_Product,  // the frame around them
    // FM_About.
    LB_Notice,  // names TX_Notice
    TX_Notice,
    // The input box.
    LB_Question = 1200,  // names TX_Answer
    TX_Answer,
    // FM_Export and FM_Inport, which also have LI_Sections, OP_Preview and PIC_Section.
    Panel3D2 = 1300,  // the frame around the three lists of the place
    LB_Drives,        // names DRV_Db
    DRV_Db,
    LB_Folders,  // names DIR_Db
    DIR_Db,
    LB_Files,  // names FIL_Db
    FIL_Db,
    LB_Sections,                 // names LI_Sections
    OP_CreateNew,                // the first of two options: 0 replaces a section, 1 creates one
    LB_Name = OP_CreateNew + 2,  // names TX_Name
    TX_Name,
    BT_Browse,
    LB_Service,
    LB_Notes,
    BT_NewLegacy,
    // The box of a long operation.
    LB_Progress = 1400,
    PB_Progress,
    // Earlier versions, which also has LB_Sections and LI_Sections.
    LB_Versions = 1420,  // names LI_Versions
    LI_Versions,
    BT_Restore,
    BT_SaveCopy,
    BT_CompareVersion,
    // Properties of a model.
    LB_Properties = 1440,  // names TX_Properties
    TX_Properties,
    BT_CopyAll,
    // Settings: of each field, in the order of SettingsField.
    LB_Setting = 1460,  // names TX_Setting
    TX_Setting = 1470,
    BT_ChooseFolder = 1480,
    LB_Programs = 1490,
    LB_SettingsFile,  // names TX_SettingsFile
    TX_SettingsFile,
    // The page preview.
    LB_PageScale = 1500,  // names CB_PageScale
    CB_PageScale,
    LB_ScaleNow,
    GR_Paper,  // around OP_Paper
    OP_Paper,  // the first of two options: landscape, portrait
    OP_PageTable = OP_Paper + 2,
    LB_PageRemark,
    IM_Page,
    BT_PreviousPage,
    LB_PageNumber,
    BT_NextPage,
    // Export all pictures.
    LB_Pictures = 1520,
    LB_PictureFolder,  // names TX_PictureFolder
    TX_PictureFolder,
    BT_PictureFolder,
    LB_PictureKind,  // names CB_PictureKind
    CB_PictureKind,
    // A report.
    LB_Report = 1540,  // names LI_Report
    LI_Report,
    LB_ReportDetails,  // names TX_ReportDetails
    TX_ReportDetails,
    BT_CopyReport,
    BT_SaveReport,
    BT_ReportAction,
    // A comparison, which also has PIC_Section, BT_CopyReport and BT_SaveReport.
    LB_Comparison = 1560,
    LB_Differing,  // names LI_Differing
    LI_Differing,
    LB_Values,  // names LI_Values
    LI_Values,
    LB_Compared,  // below PIC_Section: what is in it
    BT_ImportCompared,
    SB_Grip,  // of a dialog that the user can size
};

inline constexpr int kRuleSetCount = 3;

// Window classes.
inline constexpr wchar_t kMainWindowClass[] = L"FM_Main";
inline constexpr wchar_t kSectionPictureClass[] = L"PIC_Section";
inline constexpr wchar_t kSplitterClass[] = L"SP_Sections";
inline constexpr wchar_t kSplashClass[] = L"FM_Load";
inline constexpr wchar_t kAboutClass[] = L"FM_About";
inline constexpr wchar_t kInputBoxClass[] = L"InputBox";
inline constexpr wchar_t kExportBoxClass[] = L"FM_Export";
inline constexpr wchar_t kImportBoxClass[] = L"FM_Inport";
inline constexpr wchar_t kProgressClass[] = L"Progress";
inline constexpr wchar_t kVersionsBoxClass[] = L"FM_Versions";
inline constexpr wchar_t kPropertiesBoxClass[] = L"FM_Properties";
inline constexpr wchar_t kSettingsBoxClass[] = L"FM_Settings";
inline constexpr wchar_t kPagePreviewClass[] = L"FM_Page";
inline constexpr wchar_t kPicturesBoxClass[] = L"FM_Pictures";
inline constexpr wchar_t kReportBoxClass[] = L"FM_Report";
inline constexpr wchar_t kCompareBoxClass[] = L"FM_Compare";

}  // namespace corvane
