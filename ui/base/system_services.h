// What the system does for the program: other programs open its documents, and carry its texts.
#pragma once

#include <cstddef>
#include <span>
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

// One of the system's objects; released with the record, before the ComScope that it needs.
template <class Object>
struct Owned {
    Object* pointer = nullptr;
    Owned() = default;
    ~Owned() {
        if (pointer != nullptr) pointer->Release();
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    Object* operator->() const { return pointer; }
    void** Place() { return reinterpret_cast<void**>(&pointer); }
};

// Opens a file in the program that the system has for it; the error of a system that cannot.
system::ErrorNumber OpenDocument(const std::wstring& path);

// After a crash the system offers to start the program again, with these arguments; without any
// where they are longer than it takes.
void SetRestart(const std::wstring& arguments);

// The clipboard, emptied, while this lives; a window owns then what is put there.
class OwnClipboard {
public:
    explicit OwnClipboard(HWND owner);
    ~OwnClipboard();
    OwnClipboard(const OwnClipboard&) = delete;
    OwnClipboard& operator=(const OwnClipboard&) = delete;

    // False while another program uses it.
    bool IsOpen() const { return isOpen_; }
    // False when there is no memory for a copy of the bytes.
    bool Put(UINT format, std::span<const std::byte> bytes) const;

private:
    bool isOpen_;
};

// Puts a text on the clipboard, and the same as HTML in the clipboard's form; empty: none. False
// while another program uses the clipboard.
bool CopyText(HWND owner, const std::wstring& text, const std::string& html);

}  // namespace corvane
