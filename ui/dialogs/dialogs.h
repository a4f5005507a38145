// Modal windows of the program's own: a caption, controls in the message font, and the keys of a
// dialog (Tab, Enter for the default button, Esc). They scale with the screen that they are on.
#pragma once

#include <initializer_list>
#include <string>

#include "ui/base/controls.h"

namespace corvane {

struct Notification {
    int control;
    int code;  // BN_..., LBN_..., CBN_..., LVN_...
};

// One kind of dialog. `contents` is what RunDialog was given.
struct DialogKind {
    const wchar_t* className;
    // The control that has the focus at first; the text of a field is selected.
    int firstFocus;
    // Adds the controls, in the order of the Tab key; IDOK is the default button, IDCANCEL in a
    // dialog without IDOK.
    void (*addControls)(HWND window, void* contents);
    // Places the controls, all of which have the message font of the resolution, and returns the
    // size that the client area must have.
    SIZE (*place)(HWND window, void* contents, UINT dpi);
    // The user pressed OK; false keeps the dialog open. Null: there is nothing to read.
    bool (*accept)(HWND window, void* contents) = nullptr;
    // The background of a label, and its text's colour; null where the system decides.
    HBRUSH (*colour)(HWND label, HDC dc) = nullptr;
    // The user did something with a control other than OK and Cancel (WM_COMMAND, WM_NOTIFY).
    void (*notify)(HWND window, void* contents, const Notification& notification) = nullptr;
    // A key was pressed (WM_KEYDOWN); true: it has been dealt with, and the control that has the
    // focus does not get it.
    bool (*key)(HWND window, void* contents, const MSG& message) = nullptr;
    // Draws an item of a control that leaves this to its owner.
    void (*draw)(void* contents, const DRAWITEMSTRUCT& item) = nullptr;
    // Fills in what a list view asks its owner for (LVN_GETDISPINFO).
    void (*fillIn)(void* contents, int list, LVITEMW& item) = nullptr;
    // Of a dialog that the user can size: places the controls in a client area of this size.
    // `place` then says which size it has at first, and may measure; it does not become smaller
    // than `least` [pixels at 96 dots per inch].
    void (*fit)(HWND window, void* contents, SIZE client, UINT dpi) = nullptr;
    SIZE least{};
    // The only window of a program: it has the program's icon and can be minimised.
    bool isProgram = false;
};

// Shows the dialog in the middle of its owner, the main window, and returns when the user has
// closed it: true with OK.
bool RunDialog(const DialogKind& kind, const std::wstring& caption, void* contents);

struct DialogControl {
    int id;
    const wchar_t* windowClass;
    std::wstring text;
    DWORD style;  // WS_CHILD is added
    DWORD exStyle = 0;
};
HWND AddControl(HWND window, const DialogControl& control);
void PlaceControl(HWND window, int id, const RECT& place);
// Places a control over the whole breadth at the top of the area, which becomes what is left below
// it.
void PlaceOnTop(HWND window, int id, LONG height, RECT& area);
// Size of a control's text, in its font, on one line.
SIZE ControlTextSize(HWND window, int id);
// Height for a control's text, in its font, wrapped to a width; at most half of the screen's, so
// that a text of any length leaves the buttons in view.
int HeightForText(HWND window, int id, int width);

// Places the push buttons in a row that ends at the right and bottom of `area`, the last one at the
// right.
void PlaceButtons(HWND window, std::initializer_list<int> ids, const RECT& area, UINT dpi);
SIZE ButtonSize(HWND window, int id, UINT dpi);
// A button that has the focus leaves it to Cancel before it is disabled. Nothing happens without
// the button.
void EnableButton(HWND window, int id, bool isEnabled);

// What the grip of a dialog that can be sized needs below the buttons.
int GripHeight(UINT dpi);

}  // namespace corvane
