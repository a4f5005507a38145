#include "ui/dialogs/file_lists.h"

#include <array>

#include "files/paths.h"
#include "platform/system.h"
#include "shell/state.h"
#include "text/text.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/folder_contents.h"
#include "ui/dialogs/list_controls.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kFramePadding = 10;
constexpr int kGap = 8;
constexpr int kLabelGap = 3;
constexpr int kDropHeight = 200;

struct LabelledList {
    int label, list;
    const wchar_t* caption;
    const wchar_t* windowClass;
    DWORD style;
    DWORD exStyle;
};

constexpr DWORD kListStyle = WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;

constexpr std::array kLists = {
    LabelledList{LB_Drives, DRV_Db, L"D&rive:", WC_COMBOBOXW, WS_VSCROLL | CBS_DROPDOWNLIST, 0},
    LabelledList{LB_Folders, DIR_Db, L"F&olders:", WC_LISTBOXW, kListStyle | kFolderListStyle,
                 WS_EX_CLIENTEDGE},
    LabelledList{LB_Files, FIL_Db, L"&Files:", WC_LISTBOXW, kListStyle, WS_EX_CLIENTEDGE}};

// The letter's item; nothing for a share of another machine.
void SelectDrive(HWND window, const std::wstring& folder) {
    const HWND drives = GetDlgItem(window, DRV_Db);
    const std::wstring drive = folder.substr(0, 2);
    const LRESULT index = SendMessageW(drives, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(drive.c_str()));
    SendMessageW(drives, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

std::wstring SelectedDrive(HWND window) {
    const HWND drives = GetDlgItem(window, DRV_Db);
    wchar_t drive[8] = L"";
    const LRESULT index = SendMessageW(drives, CB_GETCURSEL, 0, 0);
    if (index >= 0) {
        SendMessageW(drives, CB_GETLBTEXT, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(drive));
    }
    return drive;
}

// A drive that is not ready leaves all as it was.
bool OpenSelectedDrive(HWND window, FileLists& lists) {
    const std::wstring drive = SelectedDrive(window);
    if (drive.empty() || EqualsIgnoringCase(lists.folder.substr(0, 2), drive)) return false;
    const bool done = ShowFolder(window, lists, drive + L"\\");
    if (!done) SelectDrive(window, lists.folder);
    return done;
}

bool OpenSelectedFolder(HWND window, FileLists& lists) {
    const std::wstring folder = SelectedFolder(GetDlgItem(window, DIR_Db), lists.folders);
    return !folder.empty() && folder != lists.folder && ShowFolder(window, lists, folder);
}

// The choice counts when the list is closed, and at once while it is closed.
bool OnDrives(HWND window, FileLists& lists, int code) {
    const HWND drives = GetDlgItem(window, DRV_Db);
    if (code == CBN_SELENDCANCEL) SelectDrive(window, lists.folder);
    const bool isOpen = SendMessageW(drives, CB_GETDROPPEDSTATE, 0, 0) != FALSE;
    const bool counts = code == CBN_CLOSEUP || (code == CBN_SELCHANGE && !isOpen);
    return counts && OpenSelectedDrive(window, lists);
}

}  // namespace

void AddFileLists(HWND window, FileLists& lists) {
    AddControl(window, {Panel3D2, WC_BUTTONW, L"Location", WS_VISIBLE | BS_GROUPBOX | WS_GROUP,
                        WS_EX_TRANSPARENT});
    for (const LabelledList& list : kLists) {
        AddControl(window, {list.label, WC_STATICW, list.caption, WS_VISIBLE | SS_LEFT});
        AddControl(window, {list.list, list.windowClass, L"", WS_VISIBLE | WS_TABSTOP | list.style,
                            list.exStyle});
    }
    for (const std::wstring& drive : Drives()) {
        SendDlgItemMessageW(window, DRV_Db, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(drive.c_str()));
    }
    const std::wstring& last = shell.settings.BrowseDirectory;
    const bool isShown = !last.empty() && ShowFolder(window, lists, system::AbsolutePath(last));
    if (!isShown) ShowFolder(window, lists, system::CurrentDirectory());
}

void PlaceFileLists(HWND window, FileLists& lists, const RECT& area, UINT dpi) {
    PlaceControl(window, Panel3D2, area);
    RECT inner = area;
    InflateRect(&inner, -Scaled(kFramePadding, dpi), -Scaled(kFramePadding, dpi));
    const LONG line = ControlTextSize(window, LB_Drives).cy;
    const int labelGap = Scaled(kLabelGap, dpi);
    const int gap = Scaled(kGap, dpi);
    inner.top += line;  // the frame's own text
    PlaceOnTop(window, LB_Drives, line, inner);
    inner.top += labelGap;
    // A drop-down list is given the height that it has when it is open.
    PlaceControl(window, DRV_Db,
                 {inner.left, inner.top, inner.right, inner.top + Scaled(kDropHeight, dpi)});
    RECT drives{};
    GetWindowRect(GetDlgItem(window, DRV_Db), &drives);
    inner.top += drives.bottom - drives.top + gap;
    const LONG listHeight = (inner.bottom - inner.top - 2 * line - 2 * labelGap - gap) / 2;
    PlaceOnTop(window, LB_Folders, line, inner);
    inner.top += labelGap;
    PlaceOnTop(window, DIR_Db, listHeight, inner);
    inner.top += gap;
    PlaceOnTop(window, LB_Files, line, inner);
    inner.top += labelGap;
    PlaceOnTop(window, FIL_Db, inner.bottom - inner.top, inner);
    ScaleFolderList(GetDlgItem(window, DIR_Db), lists.folders, dpi);
    FitScrolling(GetDlgItem(window, FIL_Db));
}

bool ShowFolder(HWND window, FileLists& lists, const std::wstring& folder) {
    FolderContents contents;
    if (!ReadFolder(folder, lists.pattern, contents)) return false;
    lists.folder = WithTrailingBackslash(folder);
    SelectDrive(window, lists.folder);
    ShowFolders(GetDlgItem(window, DIR_Db), lists.folders, lists.folder, contents.folders);
    const HWND files = GetDlgItem(window, FIL_Db);
    FillList(files, contents.files);
    FitScrolling(files);
    return true;
}

void ShowFile(HWND window, FileLists& lists, const std::wstring& path) {
    if (!ShowFolder(window, lists, DirectoryOf(path))) return;
    const HWND files = GetDlgItem(window, FIL_Db);
    const std::wstring name = FileNameOf(path);
    const auto text = reinterpret_cast<LPARAM>(name.c_str());
    LRESULT index = SendMessageW(files, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), text);
    if (index < 0) index = SendMessageW(files, LB_ADDSTRING, 0, text);
    SendMessageW(files, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

std::wstring ChosenFile(HWND window, const FileLists& lists) {
    const HWND files = GetDlgItem(window, FIL_Db);
    const std::wstring name = ListItemText(files, SendMessageW(files, LB_GETCURSEL, 0, 0));
    return name.empty() ? name : lists.folder + name;
}

FileListsEvent OnFileLists(HWND window, FileLists& lists, const Notification& notification) {
    const auto [control, code] = notification;
    bool isOtherFolder = false;
    if (control == DRV_Db) isOtherFolder = OnDrives(window, lists, code);
    if (control == DIR_Db && code == LBN_DBLCLK) isOtherFolder = OpenSelectedFolder(window, lists);
    if (isOtherFolder) return FileListsEvent::kOtherFolder;
    if (control == FIL_Db && code == LBN_SELCHANGE) return FileListsEvent::kFileClick;
    if (control == FIL_Db && code == LBN_DBLCLK) return FileListsEvent::kFileDoubleClick;
    return FileListsEvent::kNone;
}

EnterKey OnEnterKey(HWND window, FileLists& lists) {
    if (GetFocus() != GetDlgItem(window, DIR_Db)) return EnterKey::kAccepts;
    return OpenSelectedFolder(window, lists) ? EnterKey::kOpenedFolder : EnterKey::kStays;
}

}  // namespace corvane
