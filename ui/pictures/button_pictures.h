// The pictures of the main window's buttons, drawn for the screen's resolution, in the system's
// colours where the user has asked for high contrast.
#pragma once

#include "database/model_kind.h"
#include "shell/rule_set.h"
#include "ui/base/controls.h"

namespace corvane {

// The model kind with a pencil; the model kind with the mark of the rule set; a ship.
void ShowEditPicture(HWND button, ModelKind kind, UINT dpi);
void ShowRulePicture(HWND button, ModelKind kind, RuleSet ruleSet, UINT dpi);
void ShowShipPicture(HWND button, UINT dpi);

// Frees the picture of a button; before the button goes.
void RemovePicture(HWND button);

}  // namespace corvane
