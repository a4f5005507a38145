#include "ui/pictures/picture_input.h"

#include <windowsx.h>

#include <cmath>

#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/pictures/picture_state.h"

namespace corvane {
namespace {

// Of a step of the wheel, and of a key.
constexpr double kWheelFactor = 1.2;
// Part of the picture that an arrow key moves.
constexpr double kKeyStep = 0.1;

POINT PlaceOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

void Zoom(HWND window, double factor, POINT at) {
    PictureState& state = *PictureStateOf(window);
    if (state.isEmpty || state.size.cx < 1 || state.size.cy < 1) return;
    ZoomView(state.scale, factor, (at.x + 0.5) / state.size.cx, (at.y + 0.5) / state.size.cy);
    DrawPictureAgain(window);
}

void Move(HWND window, double right, double down) {
    PictureState& state = *PictureStateOf(window);
    if (state.isEmpty) return;
    MoveView(state.scale, right, down);
    DrawPictureAgain(window);
}

void OnWheel(HWND window, short turn, POINT onScreen) {
    ScreenToClient(window, &onScreen);
    Zoom(window, std::pow(kWheelFactor, static_cast<double>(turn) / WHEEL_DELTA), onScreen);
}

void OnPress(HWND window, POINT at) {
    SetFocus(window);
    SetCapture(window);
    PictureStateOf(window)->drag = {true, false, at};
}

bool IsBeyondThreshold(POINT from, POINT to) {
    return std::abs(to.x - from.x) >= GetSystemMetrics(SM_CXDRAG) ||
           std::abs(to.y - from.y) >= GetSystemMetrics(SM_CYDRAG);
}

// ---- What is under the pointer -----------------------------------------------------------------

// Nearer than this is on it [pixels at 96 dots per inch].
constexpr int kReach = 5;

PicturePlace PlaceAt(HWND window, POINT at) {
    const PictureState& state = *PictureStateOf(window);
    const Picture& picture = state.scale;
    const double metresPerPixel = picture.scaleWidth / state.size.cx;
    return {
        {YAt(picture, (at.x + 0.5) / state.size.cx), ZAt(picture, (at.y + 0.5) / state.size.cy)},
        Scaled(kReach, DpiOf(window)) * metresPerPixel};
}

std::vector<PicturePlace>& PlacesOf(HWND window) {
    return PictureStateOf(window)->source.pane->places;
}

bool HasPlaces(const PictureState& state) {
    return ShownSection(state) != nullptr && state.scale.scaleWidth > 0 && state.size.cx > 0 &&
           state.size.cy > 0;
}

void ShowPointedAt(HWND window, const std::wstring& text) {
    PictureState& state = *PictureStateOf(window);
    if (text == state.pointedAt) return;
    state.pointedAt = text;
    // It comes again, with the new text, when the pointer rests.
    SendMessageW(state.toolTip, TTM_POP, 0, 0);
    state.source.onPointedAt(text);
}

void PointAt(HWND window, POINT at) {
    const PictureState& state = *PictureStateOf(window);
    if (!HasPlaces(state)) return ShowPointedAt(window, L"");
    ShowPointedAt(window, PlaceLine(*ShownSection(state), PlaceAt(window, at)));
}

void FillToolTip(HWND window, NMTTDISPINFOW& request) {
    request.lpszText = PictureStateOf(window)->pointedAt.data();
}

// ---- Marks -------------------------------------------------------------------------------------

void PlacesChanged(HWND window) {
    DrawPictureAgain(window);
    PictureStateOf(window)->source.onMarked();
}

void Mark(HWND window, POINT at) {
    if (!HasPlaces(*PictureStateOf(window))) return;
    std::vector<PicturePlace>& places = PlacesOf(window);
    if (places.size() == 2) places.clear();
    places.push_back(PlaceAt(window, at));
    PlacesChanged(window);
}

void Unmark(HWND window) {
    ClearPlaces(window);
    DrawPictureAgain(window);
}

// ---- Dragging ----------------------------------------------------------------------------------

void Drag(HWND window, POINT at) {
    PictureState& state = *PictureStateOf(window);
    PictureDrag& drag = state.drag;
    if (!drag.isMoving && !IsBeyondThreshold(drag.from, at)) return;
    drag.isMoving = true;
    SetCursor(LoadCursorW(nullptr, IDC_SIZEALL));
    const double right = static_cast<double>(at.x - drag.from.x) / state.size.cx;
    const double down = static_cast<double>(at.y - drag.from.y) / state.size.cy;
    drag.from = at;
    Move(window, right, down);
}

// Windows sends a movement also when a box over the picture closes and the pointer lies there, or
// the picture appears under it. Only a pointer that the user moves asks for a description, which
// takes the place of the line in the status bar that says what a command has done.
bool IsMoved(HWND window, POINT at) {
    std::optional<POINT>& pointer = PictureStateOf(window)->pointer;
    const bool isMoved = pointer && (pointer->x != at.x || pointer->y != at.y);
    pointer = at;
    TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, window, 0};
    TrackMouseEvent(&leaving);
    return isMoved;
}

void OnMouseMove(HWND window, POINT at) {
    const PictureState& state = *PictureStateOf(window);
    if (state.isEmpty) return;
    if (state.drag.isHeld) return Drag(window, at);
    if (IsMoved(window, at)) PointAt(window, at);
}

void OnMouseLeave(HWND window) {
    PictureStateOf(window)->pointer.reset();
    ShowPointedAt(window, L"");
}

void EndDrag(HWND window) {
    PictureStateOf(window)->drag = {};
    if (GetCapture() == window) ReleaseCapture();
}

// The second press of a double click shows all again; its first one was no mark.
void OnDoubleClick(HWND window) {
    if (!PlacesOf(window).empty()) PlacesOf(window).pop_back();
    FitSectionPicture(window);
    PictureStateOf(window)->source.onMarked();
}

void OnRelease(HWND window, POINT at) {
    const bool isClick =
        PictureStateOf(window)->drag.isHeld && !PictureStateOf(window)->drag.isMoving;
    EndDrag(window);
    if (isClick) Mark(window, at);
}

bool OnKey(HWND window, WPARAM key) {
    switch (key) {
        case VK_LEFT:
            Move(window, kKeyStep, 0);
            return true;
        case VK_RIGHT:
            Move(window, -kKeyStep, 0);
            return true;
        case VK_UP:
            Move(window, 0, kKeyStep);
            return true;
        case VK_DOWN:
            Move(window, 0, -kKeyStep);
            return true;
        case VK_ADD:
        case VK_OEM_PLUS:
            ZoomSectionPicture(window, true);
            return true;
        case VK_SUBTRACT:
        case VK_OEM_MINUS:
            ZoomSectionPicture(window, false);
            return true;
        case VK_HOME:
            FitSectionPicture(window);
            return true;
        case VK_SPACE:
            Mark(window,
                 {PictureStateOf(window)->size.cx / 2, PictureStateOf(window)->size.cy / 2});
            return true;
        case VK_ESCAPE:
            Unmark(window);
            return true;
        default:
            return false;
    }
}

bool OnNotify(HWND window, LPARAM lParam) {
    auto& header = *reinterpret_cast<NMHDR*>(lParam);
    if (header.code != TTN_GETDISPINFOW) return false;
    FillToolTip(window, *reinterpret_cast<NMTTDISPINFOW*>(lParam));
    return true;
}

// Esc is the picture's as long as there is something to forget.
bool WantsKey(HWND window, LPARAM lParam) {
    const auto* message = reinterpret_cast<const MSG*>(lParam);
    return message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE &&
           !PlacesOf(window).empty();
}

}  // namespace

void AddPictureToolTip(HWND picture) {
    const HWND toolTip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                         WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0,
                                         picture, nullptr, nullptr, nullptr);
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = picture;
    tool.uId = reinterpret_cast<UINT_PTR>(picture);
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    SendMessageW(toolTip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(toolTip, TTM_SETMAXTIPWIDTH, 0, 600);
    PictureStateOf(picture)->toolTip = toolTip;
}

void ClearPlaces(HWND picture) {
    ShowPointedAt(picture, L"");
    if (PlacesOf(picture).empty()) return;
    PlacesOf(picture).clear();
    PictureStateOf(picture)->source.onMarked();
}

void ZoomSectionPicture(HWND picture, bool isLarger) {
    const PictureState* state = PictureStateOf(picture);
    if (state == nullptr) return;
    Zoom(picture, isLarger ? kWheelFactor : 1 / kWheelFactor,
         {state->size.cx / 2, state->size.cy / 2});
}

void FitSectionPicture(HWND picture) {
    PictureState* state = PictureStateOf(picture);
    if (state == nullptr || state->isEmpty) return;
    FitView(state->scale.view);
    DrawPictureAgain(picture);
}

bool HandlePictureInput(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& answer) {
    answer = 0;
    switch (message) {
        case WM_MOUSEWHEEL:
            OnWheel(window, GET_WHEEL_DELTA_WPARAM(wParam), PlaceOf(lParam));
            return true;
        case WM_LBUTTONDOWN:
            OnPress(window, PlaceOf(lParam));
            return true;
        case WM_MOUSEMOVE:
            OnMouseMove(window, PlaceOf(lParam));
            return true;
        case WM_LBUTTONUP:
            OnRelease(window, PlaceOf(lParam));
            return true;
        case WM_CAPTURECHANGED:
            EndDrag(window);
            return true;
        case WM_LBUTTONDBLCLK:
            OnDoubleClick(window);
            return true;
        case WM_MOUSELEAVE:
            OnMouseLeave(window);
            return true;
        case WM_NOTIFY:
            return OnNotify(window, lParam);
        case WM_GETDLGCODE:
            answer = DLGC_WANTARROWS | DLGC_WANTCHARS |
                     (WantsKey(window, lParam) ? DLGC_WANTMESSAGE : 0);
            return true;
        case WM_KEYDOWN:
            return OnKey(window, wParam);
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            InvalidateRect(window, nullptr, FALSE);
            return true;
        default:
            return false;
    }
}

}  // namespace corvane
