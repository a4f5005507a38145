#include "ui/pictures/section_picture.h"

#include <uxtheme.h>

#include <memory>
#include <utility>

#include "ui/base/colours.h"
#include "ui/base/control_ids.h"
#include "ui/base/dpi.h"
#include "ui/base/own_window.h"
#include "ui/pictures/figure_player.h"
#include "ui/pictures/picture_input.h"
#include "ui/pictures/picture_state.h"

namespace corvane {
namespace {

// Around a text in the picture, at 96 dots an inch.
constexpr int kTextMargin = 8;

// The window's text, which readers of the screen say, unless it says why it is empty.
constexpr wchar_t kCaption[] = L"Preview of the section";
constexpr wchar_t kBulkheadCaption[] = L"Preview of the bulkheads";

// Drawing on a bitmap, for as long as this lives.
struct BitmapDevice {
    HDC dc;
    HGDIOBJ before;
    HFONT font = nullptr;

    BitmapDevice(HWND window, HBITMAP bitmap) {
        const HDC screen = GetDC(window);
        dc = CreateCompatibleDC(screen);
        ReleaseDC(window, screen);
        before = SelectObject(dc, bitmap);
    }
    ~BitmapDevice() {
        SelectObject(dc, GetStockObject(SYSTEM_FONT));
        SelectObject(dc, before);
        if (font != nullptr) DeleteObject(font);
        DeleteDC(dc);
    }
    BitmapDevice(const BitmapDevice&) = delete;
    BitmapDevice& operator=(const BitmapDevice&) = delete;
};

// A section has black lines and dark colours: where the system's ground is dark it has white paper,
// and the greys of a light scheme.
void FillBackground(HWND window, HDC dc, SIZE size) {
    const RECT all{0, 0, size.cx, size.cy};
    const bool isPaper = !PictureStateOf(window)->isEmpty && IsDark(COLOR_WINDOW);
    FillRect(dc, &all,
             isPaper ? static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH))
                     : GetSysColorBrush(COLOR_WINDOW));
}

int32_t ColourOfSystem(int index) {
    if (!IsDark(COLOR_WINDOW)) return static_cast<int32_t>(GetSysColor(index));
    return index == COLOR_BTNFACE ? RGB(240, 240, 240) : RGB(160, 160, 160);
}

void ClearPicture(Picture& picture) {
    RECT client{};
    const HWND window = static_cast<HWND>(picture.window);
    GetClientRect(window, &client);
    FillBackground(window, static_cast<HDC>(picture.dc), {client.right, client.bottom});
}

HFONT PictureFont(HWND window, int percent) {
    const HFONT font = CreateMessageFont(DpiOf(window), percent);
    const std::wstring& typeface = PictureStateOf(window)->source.typeface;
    LOGFONTW description{};
    if (typeface.empty() || GetObjectW(font, sizeof description, &description) == 0) return font;
    DeleteObject(font);
    lstrcpynW(description.lfFaceName, typeface.c_str(), LF_FACESIZE);
    return CreateFontIndirectW(&description);
}

// A broad ship has more strakes in the same room, and smaller numbers on them.
void SetPictureFont(Picture& picture, float breadth) {
    constexpr float kBroad_m = 20;
    auto& device = *static_cast<BitmapDevice*>(picture.context);
    const HWND window = static_cast<HWND>(picture.window);
    const HFONT font = PictureFont(window, breadth < kBroad_m ? 90 : 75);
    SelectObject(device.dc, font);
    if (device.font != nullptr) DeleteObject(device.font);
    device.font = font;
}

float Twips(LONG pixels, UINT dpi) {
    constexpr float kTwipsPerInch = 1440;
    return static_cast<float>(pixels) * kTwipsPerInch / static_cast<float>(dpi);
}

void DrawFigure(Picture& picture, const Figure& figure) {
    constexpr double kMmPerInch = 25.4;
    const UINT dpi = DpiOf(static_cast<HWND>(picture.window));
    FigureDevice device{static_cast<HDC>(picture.dc), dpi / kMmPerInch};
    LOGFONTW font{};
    const HGDIOBJ letters = GetCurrentObject(device.dc, OBJ_FONT);
    if (GetObjectW(letters, sizeof font, &font) != 0) device.typeface = font.lfFaceName;
    PlayFigure(device, figure);
}

// Draws on the kept bitmap and shows it; nothing happens with a window that has gone.
void DrawOn(HWND window, const std::function<void(Picture&)>& draw) {
    if (PictureStateOf(window) == nullptr || PictureStateOf(window)->contents == nullptr) return;
    PictureState& state = *PictureStateOf(window);
    BitmapDevice device(window, state.contents);
    Picture& picture = state.scale;
    picture.window = window;
    picture.dc = device.dc;
    picture.width = Twips(state.size.cx, DpiOf(window));
    picture.height = Twips(state.size.cy, DpiOf(window));
    picture.context = &device;
    picture.clear = ClearPicture;
    picture.setFont = SetPictureFont;
    picture.systemColour = ColourOfSystem;
    picture.drawFigure = DrawFigure;
    draw(picture);
    picture.dc = nullptr;
    picture.context = nullptr;
    InvalidateRect(window, nullptr, FALSE);
}

// Draws the text in the middle of the picture, on as many lines as it needs.
void DrawWhy(Picture& picture) {
    const HWND window = static_cast<HWND>(picture.window);
    auto& device = *static_cast<BitmapDevice*>(picture.context);
    const std::wstring& why = PictureStateOf(window)->why;
    RECT client{};
    GetClientRect(window, &client);
    const int margin = Scaled(kTextMargin, DpiOf(window));
    InflateRect(&client, -margin, -margin);
    device.font = CreateMessageFont(DpiOf(window), 100);
    SelectObject(device.dc, device.font);
    SetBkMode(device.dc, TRANSPARENT);
    SetTextColor(device.dc, GetSysColor(COLOR_WINDOWTEXT));
    constexpr UINT kFormat = DT_CENTER | DT_WORDBREAK | DT_NOPREFIX;
    RECT text = client;
    DrawTextW(device.dc, why.c_str(), -1, &text, kFormat | DT_CALCRECT);
    const LONG free = (client.bottom - client.top) - (text.bottom - text.top);
    client.top += free > 0 ? free / 2 : 0;
    DrawTextW(device.dc, why.c_str(), -1, &client, kFormat);
}

// Draws the section, or what the empty picture says.
void DrawContents(HWND window) {
    const PictureState& state = *PictureStateOf(window);
    if (state.why.empty()) return DrawOn(window, state.source.draw);
    DrawOn(window, SyncGraphicsFrame);
    DrawOn(window, DrawWhy);
}

// A bitmap of the window's size, with as much of the old contents as it holds.
void TakeSize(HWND window, SIZE size) {
    PictureState& state = *PictureStateOf(window);
    if (size.cx < 1 || size.cy < 1) return;
    const HDC screen = GetDC(window);
    const HBITMAP contents = CreateCompatibleBitmap(screen, size.cx, size.cy);
    ReleaseDC(window, screen);
    if (contents == nullptr) return;
    {
        const BitmapDevice target(window, contents);
        FillBackground(window, target.dc, size);
        if (state.contents != nullptr) {
            const BitmapDevice source(window, state.contents);
            BitBlt(target.dc, 0, 0, state.size.cx, state.size.cy, source.dc, 0, 0, SRCCOPY);
        }
    }
    if (state.contents != nullptr) DeleteObject(state.contents);
    state.contents = contents;
    state.size = size;
    DrawContents(window);
}

void ShowContents(HWND window, HDC dc) {
    const PictureState& state = *PictureStateOf(window);
    if (state.contents == nullptr) return;
    const BitmapDevice source(window, state.contents);
    BitBlt(dc, 0, 0, state.size.cx, state.size.cy, source.dc, 0, 0, SRCCOPY);
}

// Paints the edge as the list beside it has it; false without a theme.
bool PaintThemedEdge(HWND window) {
    const HTHEME theme = OpenThemeData(window, L"ListView");
    if (theme == nullptr) return false;
    RECT edge{};
    GetWindowRect(window, &edge);
    OffsetRect(&edge, -edge.left, -edge.top);
    const UINT dpi = DpiOf(window);
    const int width = SystemMetric(SM_CXEDGE, dpi);
    const int height = SystemMetric(SM_CYEDGE, dpi);
    const HDC dc = GetWindowDC(window);
    ExcludeClipRect(dc, width, height, edge.right - width, edge.bottom - height);
    DrawThemeBackground(theme, dc, 0, 0, &edge, nullptr);
    ReleaseDC(window, dc);
    CloseThemeData(theme);
    return true;
}

void OnPaint(HWND window) {
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(window, &paint);
    ShowContents(window, dc);
    if (GetFocus() == window) {
        RECT client{};
        GetClientRect(window, &client);
        DrawFocusRect(dc, &client);
    }
    EndPaint(window, &paint);
}

// The background is in the colours of the system.
void OnColoursChanged(HWND window) {
    DrawOn(window, SyncGraphicsFrame);
    DrawContents(window);
}

void OnNcDestroy(HWND window) {
    const std::unique_ptr<PictureState> state(PictureStateOf(window));
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    if (state->contents != nullptr) DeleteObject(state->contents);
}

LRESULT HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT answer = 0;
    if (HandlePictureInput(window, message, wParam, lParam, answer)) return answer;
    switch (message) {
        case WM_SIZE:
            TakeSize(window, {LOWORD(lParam), HIWORD(lParam)});
            return 0;
        case WM_ERASEBKGND:
            // The contents cover the whole window.
            return TRUE;
        case WM_NCPAINT:
            if (PaintThemedEdge(window)) return 0;
            break;
        case WM_PAINT:
            OnPaint(window);
            return 0;
        case WM_PRINTCLIENT:
            ShowContents(window, reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_SYSCOLORCHANGE:
            OnColoursChanged(window);
            return 0;
        case WM_NCDESTROY:
            OnNcDestroy(window);
            break;
        default:
            break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK PictureProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto& creation = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation.lpCreateParams));
    }
    // Before the state is there, and after it has gone, the window needs nothing of ours.
    if (PictureStateOf(window) == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    try {
        return HandleMessage(window, message, wParam, lParam);
    } catch (...) {
        ReportFault();
        return 0;
    }
}

}  // namespace

SectionModel* ShownSection(const PictureState& state) {
    PreviewPane* pane = state.source.pane;
    return state.isEmpty || pane == nullptr || !pane->isShown ? nullptr : &pane->section;
}

PictureState* PictureStateOf(HWND window) {
    return reinterpret_cast<PictureState*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

void DrawPictureAgain(HWND window) {
    DrawContents(window);
    UpdateWindow(window);
}

void AnnotateSectionPicture(HWND picture) {
    if (PictureStateOf(picture) != nullptr && !PictureStateOf(picture)->isEmpty) {
        DrawPictureAgain(picture);
    }
}

std::wstring PictureFacts(HWND picture) {
    const PictureState* state = PictureStateOf(picture);
    SectionModel* section = state == nullptr ? nullptr : ShownSection(*state);
    return section == nullptr ? std::wstring() : PlaceFacts(*section, state->source.pane->places);
}

HWND CreateSectionPicture(HWND parent, PictureContents contents) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = PictureProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kSectionPictureClass;
    RegisterClassExW(&windowClass);
    auto state = std::make_unique<PictureState>();
    state->source = std::move(contents);
    const HWND picture = CreateWindowExW(WS_EX_CLIENTEDGE, kSectionPictureClass, kCaption,
                                         WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0, parent,
                                         reinterpret_cast<HMENU>(INT_PTR{PIC_Section}),
                                         windowClass.hInstance, state.release());
    AddPictureToolTip(picture);
    return picture;
}

void RedrawSectionPicture(HWND picture) {
    if (PictureStateOf(picture) == nullptr) return;
    PictureStateOf(picture)->isEmpty = false;
    PictureStateOf(picture)->why.clear();
    ClearPlaces(picture);
    FitView(PictureStateOf(picture)->scale.view);
    const PreviewPane* pane = PictureStateOf(picture)->source.pane;
    const bool areBulkheads = pane != nullptr && pane->areBulkheadsShown;
    SetWindowTextW(picture, areBulkheads ? kBulkheadCaption : kCaption);
    DrawContents(picture);
}

void ClearSectionPicture(HWND picture, const std::wstring& why) {
    if (PictureStateOf(picture) == nullptr) return;
    ClearPlaces(picture);
    PictureStateOf(picture)->isEmpty = true;
    PictureStateOf(picture)->why = why;
    SetWindowTextW(picture, why.empty() ? kCaption : why.c_str());
    DrawOn(picture, SyncGraphicsFrame);
    if (!why.empty()) DrawOn(picture, DrawWhy);
}

}  // namespace corvane
