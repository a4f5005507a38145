// PIC_Section: a child window that keeps what is drawn in it.
#pragma once

#include <functional>
#include <string>

#include "platform/win32/win32.h"
#include "preview/section_preview.h"
#include "shell/preview_pane.h"

namespace corvane {

// What a picture shows, and what it reports to others. All of them are called while the window
// lives.
struct PictureContents {
    std::function<void(Picture&)> draw;  // draws what the pane shows, or nothing
    // What is drawn; it stays where it is as long as the window lives.
    PreviewPane* pane = nullptr;
    // What is under the pointer, on one line; empty when the pointer has left the picture.
    std::function<void(const std::wstring&)> onPointedAt = [](const std::wstring&) {};
    // The places that the user clicked on have changed; PictureFacts says what is there.
    std::function<void()> onMarked = [] {};
    std::wstring typeface;  // of the texts in it; empty for that of messages
};

// The picture as a child of `parent`, without a place yet.
HWND CreateSectionPicture(HWND parent, PictureContents contents);

// Draws what the pane shows, all of it. A pane that shows nothing, and a ship whose data are not
// defined, leave the picture as it is.
void RedrawSectionPicture(HWND picture);
// Empties the picture; a text, which is also the window's own then, says in its middle why.
void ClearSectionPicture(HWND picture, const std::wstring& why = {});

// Draws again what is switched on over the section.
void AnnotateSectionPicture(HWND picture);
// What is at the places that the user clicked on (shell/picture_facts.h); empty without one.
std::wstring PictureFacts(HWND picture);

// Shows more or less of the section, around the middle; all of it again.
void ZoomSectionPicture(HWND picture, bool isLarger);
void FitSectionPicture(HWND picture);

}  // namespace corvane
