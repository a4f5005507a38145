// PIC_Section: a child window that keeps what is drawn in it.
#pragma once

#include <functional>
#include <string>

#include "platform/win32/win32.h"
#include "preview/section_preview.h"

namespace corvane {

// What a picture shows.
struct PictureContents {
    std::function<void(Picture&)> draw;  // draws a section, or nothing
    std::wstring typeface;               // of the texts in it; empty for that of messages
};

// The picture as a child of `parent`, without a place yet.
HWND CreateSectionPicture(HWND parent, PictureContents contents);

// Draws the section. Where there is none, or the Basic Ship Data are not defined, the picture keeps
// its contents.
void RedrawSectionPicture(HWND picture);
// Empties the picture; a text, which is also the window's own then, says in its middle why.
void ClearSectionPicture(HWND picture, const std::wstring& why = {});

}  // namespace corvane
