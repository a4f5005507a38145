// What the system does for the program: other programs open its documents, and carry its texts.
#pragma once

#include <string>

#include "platform/system.h"
#include "platform/win32/win32.h"

namespace corvane {

// While it lives the thread may use the shell's objects.
class ComScope {
public:
    ComScope();
    ~ComScope();
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

private:
    HRESULT result_;
};

// Opens a file in the program that the system has for it; the error of a system that cannot.
system::ErrorNumber OpenDocument(const std::wstring& path);

// Puts a text on the clipboard, which a window owns then; false while another program uses it.
bool CopyText(HWND owner, const std::wstring& text);

}  // namespace corvane
