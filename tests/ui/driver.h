// Drives the real Corvane.exe from another process, through its windows: what a user sees and
// presses. Everything waits for a condition, nothing sleeps for a time.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/win32.h"
// windows.h must come first.
#include <commctrl.h>

namespace corvane::ui {

// The longest that anything is waited for, in milliseconds.
inline constexpr DWORD kPatience = 20000;

// False when the condition does not come true.
bool WaitUntil(const std::function<bool()>& condition);
// The window's answer to a message; 0 when it does not answer.
LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// A folder that holds a copy of the program and its libraries, so that each test has a program of
// its own; removed at the end. The folder's name has blanks in it.
struct Installation {
    std::wstring folder;  // with a trailing "\"
    Installation();
    ~Installation();
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;
    std::wstring File(std::wstring_view name) const { return folder + std::wstring(name); }
    // Copies another program that was built into the folder.
    void Add(const wchar_t* program) const;
    // Copies the pages of the user guide beside the program.
    void AddGuide() const;
};

// The settings file of all copies, empty at the start of a test and at its end.
struct Settings {
    Settings() { Remove(); }
    ~Settings() { Remove(); }
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;
    static std::wstring Path();
    static void Remove();
    static void Write(const wchar_t* key, const std::wstring& value);
    static std::wstring Read(const wchar_t* key);
};

// A running program. It is ended, whatever it does, at the end of the test; when the test has
// failed by then, the screen is kept as a picture (see the message).
struct Program {
    HANDLE process = nullptr;
    HANDLE job = nullptr;
    DWORD id = 0;

    // Starts a program of the installation. `arguments` is what follows the program's name;
    // `folder`, the current one at its start, is the installation's where it is not given.
    explicit Program(const Installation& installation, const std::wstring& arguments = L"",
                     const wchar_t* name = L"Corvane.exe", const std::wstring& folder = L"");
    // One that the test has started; its handles are the record's from now on.
    explicit Program(const PROCESS_INFORMATION& started);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // It ends with this process.
    void Adopt(const PROCESS_INFORMATION& started);
    // Waits until the process has ended; false when it does not.
    bool HasEnded(DWORD milliseconds = kPatience) const;
    DWORD ExitCode() const;

    // Waits for a visible top-level window; null when it does not come.
    HWND Window(const wchar_t* className) const;
    // The main window, visible and ready for input.
    HWND Main() const;
    // The window as it is now, or null.
    HWND FindNow(const wchar_t* className) const;
};

// A message box: waits for it, reads it, presses a button and waits until it has gone.
struct Box {
    HWND window = nullptr;
    std::wstring title;
    std::wstring text;
};
Box WaitForBox(const Program& program);
// The box's text above the first empty line: what has happened, or is asked, without the advice.
std::string Message(const Box& box);
bool Press(const Box& box, int button);

// A dialog of the program's own, found with Program::Window: presses a button and waits until the
// dialog has gone.
bool PressButton(HWND dialog, int button);
bool HasClosed(HWND window);
// Keys, given to a control as the keyboard gives them.
void PressKey(HWND control, WPARAM key);
void Type(HWND control, std::wstring_view text);
// The control that has the focus in the window's program.
HWND FocusOf(HWND window);
// Waits for the system's file prompt, gives it a path, or cancels it when the path is empty, and
// waits until it has gone.
bool AnswerFilePrompt(const Program& program, const std::wstring& path);

std::wstring TextOf(HWND window);
// Waits until the window's text is `text`.
bool TextBecomes(HWND window, std::wstring_view text);

// A row of the list: the texts of its columns and its icon (0-based).
struct Row {
    std::vector<std::wstring> cells;
    int icon = -1;
    bool selected = false;
};
std::vector<Row> Rows(const Program& program, HWND list);
std::vector<std::wstring> ColumnTitles(const Program& program, HWND list);
// As a click on the row does.
void SelectRow(const Program& program, HWND list, int row);
// -1: none.
int SelectedRow(HWND list);
// Waits until the list has so many rows.
bool RowCountBecomes(HWND list, int count);

// The text on the clipboard; empty without one, and while another program uses it.
std::wstring ClipboardText();

// Chooses a menu item without waiting for what it does.
void Choose(HWND main, int command);

}  // namespace corvane::ui
