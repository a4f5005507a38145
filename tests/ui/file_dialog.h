// More of the system's file prompt than AnswerFilePrompt looks at: what is in it, and the boxes
// that come over it or after it.
#pragma once

#include <string>

#include "tests/ui/driver.h"

namespace corvane::ui {

struct FileDialog {
    HWND window = nullptr;
    std::wstring caption;
    std::wstring proposed;  // the name that is in it
};

// Waits for the prompt; window is null when none comes.
FileDialog WaitForFileDialog(const Program& program);
// What is in the prompt's field for the name.
std::wstring NameIn(const FileDialog& dialog);
// Types a name, presses OK, and waits for the box that the prompt then shows.
Box AnswerWithBox(const Program& program, const FileDialog& dialog, const std::wstring& name);
// Waits for a box that is no file prompt.
Box WaitForPlainBox(const Program& program);

}  // namespace corvane::ui
