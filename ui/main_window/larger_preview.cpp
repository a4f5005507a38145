#include "ui/main_window/larger_preview.h"

#include "ui/base/dpi.h"
#include "ui/main_window/main_window_controls.h"
#include "ui/main_window/main_window_state.h"
#include "ui/main_window/start_pane.h"

namespace corvane {
namespace {

constexpr int kBesidePreview[] = {LB_DataBase, TX_DataBase, Command1,   LB_Filter,   TX_Filter,
                                  LB_Models,   LB_Count,    LB_WhyGone, LI_Sections, SP_Sections,
                                  BT_Open,     BT_Rule,     BT_Bsd,     GR_Rule};

// Whether a control is to be seen beside the preview.
bool IsThere(HWND window, const Layout& layout, int id) {
    if (id == BT_Rule) return layout.hasRuleButton;
    if (id == LI_Sections) return !IsStartPaneShown(window);
    if (id == LB_WhyGone) return !WindowText(GetDlgItem(window, id)).empty();
    return true;
}

}  // namespace

void ShowLargerPreviewIn(HWND window, bool isLarge) {
    Layout& layout = StateOfMainWindow(window)->layout;
    layout.isPreviewLarge = isLarge;
    for (const int id : kBesidePreview) {
        const bool isShown = !isLarge && IsThere(window, layout, id);
        ShowWindow(GetDlgItem(window, id), isShown ? SW_SHOWNA : SW_HIDE);
    }
    for (int i = 0; i < kRuleSetCount; ++i) {
        ShowWindow(GetDlgItem(window, OP_Rule + i), isLarge ? SW_HIDE : SW_SHOWNA);
    }
    LayOutMainWindow(window, layout);
    SetFocus(GetDlgItem(window, isLarge ? PIC_Section : LI_Sections));
}

}  // namespace corvane
