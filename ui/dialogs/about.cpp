#include "ui/dialogs/about.h"

#include <algorithm>

#include "bsd/labels.h"
#include "report/messages.h"
#include "shell/commands/commands.h"
#include "shell/state.h"
#include "text/text.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/product_panel.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kClientWidth = 440;
constexpr int kMargin = 11;
constexpr int kGap = 7;
constexpr int kNoticePadding = 12;

struct AboutBox {
    ProductTexts texts;
    ProductPanel panel;
};

// What the suite says of the program, and the legal notice below, as the text of a field of several
// lines.
std::wstring NoticeText() {
    return WithLineFeeds(
        ExpandLineBreaks(BsdLabel(kLabelAbout) + L"\r\r" + GetMessage(kMsgLegalNotice)));
}

void AddControls(HWND window, void* contents) {
    AddProductPanel(window, static_cast<const AboutBox*>(contents)->texts);
    AddControl(window, {LB_Notice, WC_STATICW, GetMessage(kMsgLegalNoticeLabel),
                        WS_VISIBLE | SS_LEFT | SS_NOPREFIX});
    AddControl(window, {TX_Notice, WC_EDITW, NoticeText(),
                        WS_VISIBLE | WS_TABSTOP | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                        WS_EX_CLIENTEDGE});
    AddControl(window, {BT_Ok, WC_BUTTONW, L"OK", WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON});
}

SIZE Place(HWND window, void* contents, UINT dpi) {
    auto& box = *static_cast<AboutBox*>(contents);
    const int margin = Scaled(kMargin, dpi);
    const int gap = Scaled(kGap, dpi);
    const SIZE panel = ScaleProductPanel(window, box.panel, dpi);
    const LONG width = std::max<LONG>(Scaled(kClientWidth, dpi), panel.cx + 2 * margin);
    RECT area{margin, margin, width - margin, margin + panel.cy};
    PlaceProductPanel(window, area, dpi);
    area.top = area.bottom + gap;
    area.bottom = area.top + ControlTextSize(window, LB_Notice).cy;
    PlaceControl(window, LB_Notice, area);
    area.top = area.bottom + gap / 2;
    const int padding = Scaled(kNoticePadding, dpi);
    const int textWidth = area.right - area.left - 2 * padding;
    area.bottom = area.top + HeightForText(window, TX_Notice, textWidth) + padding;
    PlaceControl(window, TX_Notice, area);
    area.bottom += gap + ButtonSize(window, BT_Ok, dpi).cy;
    PlaceButtons(window, {BT_Ok}, area, dpi);
    return {width, area.bottom + margin};
}

HBRUSH Colour(HWND label, HDC dc) {
    return ColourProductLabel(label, dc, COLOR_BTNFACE);
}

}  // namespace

void ShowAbout(const std::wstring& heading, const ProgramVersion& version) {
    static constexpr DialogKind kAboutBox{kAboutClass, BT_Ok, AddControls, Place, nullptr, Colour};
    AboutBox box;
    box.texts = {shell.title, heading, version};
    RunDialog(kAboutBox, MenuCaptionText(FindCommand(ME_HelpAbout)->caption), &box);
}

}  // namespace corvane
