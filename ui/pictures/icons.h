// The pictures of the program: icons of its resources (pictures.rc), each in the sizes from 16 to
// 256 pixels that the resolutions of screens ask for. make_icons draws them from pictures.svg.
#pragma once

#include <optional>

#include "database/model_kind.h"
#include "shell/rule_set.h"
#include "ui/base/controls.h"

namespace corvane {

enum PictureId : int {
    kProgramPicture = 1,
    kFirstKindPicture = 100,
    kShipPicture = 150,
    kFolderPicture,
    kOpenFolderPicture
};

// A model kind; the kind with a pencil; the kind with the mark of a rule set.
PictureId KindPicture(ModelKind kind);
PictureId EditPicture(ModelKind kind);
PictureId RulePicture(ModelKind kind, RuleSet ruleSet);

// A picture of any size, made smaller from the next larger one; the caller destroys it. Null when
// the program has no such picture.
HICON LoadPicture(int id, int side);

// A picture of the system (IDI_WARNING), as LoadPicture.
HICON LoadSystemPicture(PCWSTR name, int side);

// The program's own icons of a window, in the caption and for the task list, at a resolution.
void SetWindowIcons(HWND window, UINT dpi);
// Frees the icons that SetWindowIcons gave the window; before the window goes.
void RemoveWindowIcons(HWND window);

// A picture in its own colours or all in one; where there is more width than height, at the left.
// The caller destroys it. Null when the program has no such picture.
HICON CreatePicture(PictureId id, SIZE size, std::optional<COLORREF> colour);

// Appends a picture to a list of 32-bit icons for items, in the list's size: in the colour of their
// text where the user has asked for high contrast or their ground is dark.
void AddListPicture(HIMAGELIST pictures, PictureId id);

}  // namespace corvane
