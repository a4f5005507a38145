#include "ui/main_window/help.h"

#include <algorithm>

#include "shell/commands/commands.h"
#include "shell/help_pages.h"
#include "shell/recent_databases.h"
#include "ui/base/control_ids.h"
#include "ui/base/own_window.h"
#include "ui/main_window/main_window_controls.h"
#include "ui/main_window/main_window_state.h"

namespace corvane {
namespace {

struct ControlHelp {
    int control;
    uint16_t about;
};
constexpr ControlHelp kControls[] = {
    {TX_DataBase, kHelpPath},   {TX_Filter, kHelpFilter},    {LI_Sections, kHelpList},
    {OP_Preview, kHelpPreview}, {PIC_Section, kHelpPreview}, {SP_Sections, kHelpPreview},
    {OP_Rule, kHelpRuleSet},    {OP_Rule + 1, kHelpRuleSet}, {OP_Rule + 2, kHelpRuleSet}};
static_assert(kRuleSetCount == 3);

// What a control is about: the command that a button runs, or its part of the window.
uint16_t AboutControl(int id) {
    const auto button = std::ranges::find(kCommandButtons, id, &CommandButton::control);
    if (button != std::end(kCommandButtons)) return button->command;
    const auto* control = std::ranges::find(kControls, id, &ControlHelp::control);
    if (control != std::end(kControls)) return control->about;
    const bool isRecent =
        id >= BT_StartRecent && id < BT_StartRecent + static_cast<int>(kRecentCount);
    return isRecent ? uint16_t{ME_FileRecent} : uint16_t{kHelpContents};
}

// Whether a message that a box passed on began in the window itself.
bool IsOwn(HWND window, HANDLE item) {
    const auto control = static_cast<HWND>(item);
    return control == window || IsChild(window, control) != 0;
}

}  // namespace

void ShowHelpOnFocus() {
    ShowHelp(AboutControl(GetDlgCtrlID(GetFocus())));
}

void OnHelp(HWND window, const HELPINFO& help) {
    if (help.iContextType == HELPINFO_MENUITEM)
        return ShowHelp(static_cast<uint16_t>(help.iCtrlId));
    if (!IsOwn(window, help.hItemHandle)) ShowHelpOnBox(StateOfMainWindow(window)->helpTime);
}

}  // namespace corvane
