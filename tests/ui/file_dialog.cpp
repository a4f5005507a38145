#include "tests/ui/file_dialog.h"

namespace corvane::ui {
namespace {

constexpr int kNameCombo = 0x47C;
constexpr int kBoxText = 0xFFFF;

// A visible dialog of a process that has a control.
struct DialogSearch {
    DWORD process;
    int control;
    HWND found;
};

BOOL CALLBACK CompareDialog(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<DialogSearch*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search.process || !IsWindowVisible(window)) return TRUE;
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    if (std::wstring_view(name) != L"#32770") return TRUE;
    if (GetDlgItem(window, search.control) == nullptr) return TRUE;
    search.found = window;
    return FALSE;
}

HWND WaitForDialog(const Program& program, int control) {
    DialogSearch search{program.id, control, nullptr};
    WaitUntil([&] {
        EnumWindows(CompareDialog, reinterpret_cast<LPARAM>(&search));
        return search.found != nullptr || program.HasEnded(0);
    });
    return search.found;
}

HWND NameEdit(HWND dialog) {
    const HWND combo = GetDlgItem(dialog, kNameCombo);
    return reinterpret_cast<HWND>(Send(combo, CBEM_GETEDITCONTROL, 0, 0));
}

}  // namespace

FileDialog WaitForFileDialog(const Program& program) {
    FileDialog dialog;
    dialog.window = WaitForDialog(program, kNameCombo);
    if (dialog.window == nullptr) return dialog;
    dialog.caption = TextOf(dialog.window);
    dialog.proposed = NameIn(dialog);
    return dialog;
}

std::wstring NameIn(const FileDialog& dialog) {
    return TextOf(NameEdit(dialog.window));
}

Box AnswerWithBox(const Program& program, const FileDialog& dialog, const std::wstring& name) {
    Send(NameEdit(dialog.window), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
    PostMessageW(GetDlgItem(dialog.window, IDOK), BM_CLICK, 0, 0);
    return WaitForPlainBox(program);
}

Box WaitForPlainBox(const Program& program) {
    Box box;
    box.window = WaitForDialog(program, kBoxText);
    if (box.window == nullptr) return box;
    box.title = TextOf(box.window);
    box.text = TextOf(GetDlgItem(box.window, kBoxText));
    return box;
}

}  // namespace corvane::ui
