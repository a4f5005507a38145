// What the main window shows, decided without a window: the rows of the list, the captions, the
// enabling. ui/windows/ shows it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "database/model_kind.h"
#include "preview/section_preview.h"
#include "shell/commands/commands.h"

namespace corvane {

struct ExportChoice;  // shell/exchange_boxes.h
struct ImportChoice;

// One row of LI_Sections.
struct ModelRow {
    std::wstring name;
    std::wstring x;     // "#0.000", empty for a negative position
    std::wstring id;    // the number, a single digit with a blank in front
    std::wstring type;  // kind name
    int icon = 1;       // 1-based place in IML_Small
    int16_t tag = 0;    // model number in the list, 1 the first
    ModelKind kind = ModelKind::kSection;
};

// What the window can do for RefreshMainWindow; filled in by ui/windows/ and by tests. The state
// record points to it (ShellState::mainWindow).
struct MainWindow {
    void (*setDatabaseText)(const std::wstring& text);   // TX_DataBase
    void (*setRows)(const std::vector<ModelRow>& rows);  // LI_Sections, all rows anew
    void (*selectRow)(int index);                        // 0-based; -1 none
    int (*selectedRow)();
    bool (*isPreviewOn)();    // OP_Preview
    void (*redrawPreview)();  // PIC_Section, through DrawPreview
    void (*clearPreview)();
    void (*setPositionText)(const std::wstring& text);  // LB_X
    void (*setFrameText)(const std::wstring& text);     // LB_Frame
    void (*setSectionMenuCaption)(const std::wstring& text);
    // OP_Rule: the option that is set, 0 to 2, and setting one; RuleSetChosen is for the caller.
    int (*selectedRule)();
    void (*selectRule)(int index);
    // BT_Open and BT_Rule: places, visibility and pictures for a model kind and the rule set.
    void (*showModelButtons)(ModelKind kind);
    void (*redrawRuleButton)();  // BT_Rule's picture, for the rule set
    // Disables all controls and menus, and enables them again.
    void (*setLocked)(bool locked);
    // Asks IsEnabled for every command, IsMenuEnabled for every menu, IsDatabaseOpen for the list.
    void (*updateEnabling)();
    void (*focusList)();
    // FM_Export and FM_Inport: false when the user cancelled. The proposed name is in `choice`.
    bool (*askExport)(ExportChoice& choice);
    bool (*askImport)(ImportChoice& choice);
    // Closes the window as the user does; it then shuts the program down.
    void (*close)();
};

// Reads the models of a database, with status message 621 meanwhile.
std::vector<ModelRow> FillModelList(const std::wstring& path);

// Rebuilds everything that the window shows from the file and the state of the process.
void RefreshMainWindow();

// A row was clicked or reached by the keyboard: it becomes the current model, and the preview, the
// labels and the Section menu follow it. A section is read for the preview, when that is on; of any
// other model, and of one that could not be read, the position alone is read.
void SelectModel(const ModelRow& row);

// Draws the selected section as it was read at its selection; the file is not read again. Leaves
// the picture as it is when there is none.
void DrawPreview(Picture& picture);

// No row is selected: preview and labels are empty and the Section menu has its own name again. The
// current model's number stays.
void DeselectModel();

// The options of OP_Rule.
enum class RuleSet { kQuor, kCsr, kMil };
RuleSet CurrentRuleSet();
// An option of OP_Rule was set: the flags, the title with its suffix, the caption and the picture
// of BT_Rule follow it.
void RuleSetChosen(RuleSet ruleSet);

// Keeps the user from the window's commands while a program of the suite runs, and gives them back;
// the window goes on painting itself. Without a window nothing happens.
void LockShell(bool locked);

// Tells the user that a command does not exist in this version.
void NotImp();

// Title - file name - ship name; the title alone without a database. The ship's name is stored back
// trimmed.
std::wstring MainWindowCaption();

// The text of LB_Frame for a position [m].
std::wstring FrameText(float x);

// Icon of a model kind, a 1-based place in IML_Small.
int KindIcon(ModelKind kind);

bool IsDatabaseOpen();
bool IsEnabled(const Command& command, bool rowSelected);
// Whether a top menu opens at all.
bool IsMenuEnabled(Menu menu);

}  // namespace corvane
