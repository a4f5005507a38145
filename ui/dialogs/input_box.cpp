#include "ui/dialogs/input_box.h"

#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/dialogs.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kClientWidth = 420;
constexpr int kMargin = 11;
constexpr int kGap = 7;
constexpr int kFieldPadding = 8;

struct InputBox {
    const std::wstring& question;
    std::wstring& answer;
};

void AddControls(HWND window, void* contents) {
    const auto& box = *static_cast<const InputBox*>(contents);
    // The label before a text box is the name that screen readers give it.
    AddControl(window, {LB_Question, WC_STATICW, box.question,
                        WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_EDITCONTROL});
    const HWND field =
        AddControl(window, {TX_Answer, WC_EDITW, box.answer,
                            WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL | ES_LEFT, WS_EX_CLIENTEDGE});
    SendMessageW(field, EM_SETLIMITTEXT, kLongestAnswer, 0);
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    AddControl(window, {IDOK, WC_BUTTONW, L"OK", button | BS_DEFPUSHBUTTON});
    AddControl(window, {IDCANCEL, WC_BUTTONW, L"Cancel", button | BS_PUSHBUTTON});
}

SIZE Place(HWND window, void*, UINT dpi) {
    const int margin = Scaled(kMargin, dpi);
    const int gap = Scaled(kGap, dpi);
    const int width = Scaled(kClientWidth, dpi);
    RECT area{margin, margin, width - margin, margin};
    area.bottom += HeightForText(window, LB_Question, area.right - area.left);
    PlaceControl(window, LB_Question, area);
    area.top = area.bottom + gap;
    area.bottom = area.top + ControlTextSize(window, IDOK).cy + Scaled(kFieldPadding, dpi);
    PlaceControl(window, TX_Answer, area);
    area.bottom += 2 * gap + ButtonSize(window, IDOK, dpi).cy;
    PlaceButtons(window, {IDOK, IDCANCEL}, area, dpi);
    return {width, area.bottom + margin};
}

bool Accept(HWND window, void* contents) {
    static_cast<InputBox*>(contents)->answer = WindowText(GetDlgItem(window, TX_Answer));
    return true;
}

}  // namespace

bool AskText(const std::wstring& caption, const std::wstring& question, std::wstring& answer) {
    static constexpr DialogKind kInputBox{kInputBoxClass, TX_Answer, AddControls, Place, Accept};
    InputBox box{question, answer};
    return RunDialog(kInputBox, caption, &box);
}

}  // namespace corvane
