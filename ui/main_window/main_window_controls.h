// The main window's controls: made, given a resolution's font and pictures, enabled.
#pragma once

#include "shell/commands/commands.h"
#include "ui/base/control_ids.h"
#include "ui/main_window/main_window_state.h"

namespace corvane {

// A button that does what a command of the menus does.
struct CommandButton {
    ControlId control;
    uint16_t command;
};
inline constexpr CommandButton kCommandButtons[] = {
    {Command1, ME_FileOpen},        {BT_Open, ME_SectionInput},  {BT_Rule, ME_SectionVelkRule},
    {BT_Bsd, ME_FileBSD},           {BT_StartOpen, ME_FileOpen}, {BT_StartNew, ME_FileNew},
    {BT_StartSample, ME_HelpSample}};

void AddMainControls(HWND window, MainWindowState& state);

// Fonts, icons, pictures and places for a resolution.
void ApplyResolution(HWND window, UINT dpi);

// Draws the pictures of the buttons again, for the kind and the rule set.
void ShowButtonPictures(HWND window);

// Frees what the controls do not free themselves.
void ReleaseMainControls(HWND window);

// Menus, buttons and list as the state of the program has them; nothing while the window is locked.
// The focus leaves a control that can no longer have it.
void UpdateEnabling(HWND window);

// The control that has the focus now gets it again later.
void RememberFocus(HWND window);
// Gives the focus to the control that had it last, or else to the first that can have it.
void GiveFocus(HWND window);

}  // namespace corvane
