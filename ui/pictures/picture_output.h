// A figure for other programs, drawn by the system: as an enhanced metafile, as a PNG file, and on
// the clipboard as both a metafile and a bitmap. White paper, in the figure's true size.
#pragma once

#include <string>

#include "platform/system.h"
#include "platform/win32/win32.h"
#include "preview/figure.h"

namespace corvane {

// Dots per inch of a PNG file, and of the bitmap on the clipboard.
inline constexpr int kPngResolution = 300;
inline constexpr int kClipboardResolution = 150;

// Both write a file that may be there already; the system's error, or kErrorNone. A PNG file is
// made in bands, so that memory does not grow with its height.
system::ErrorNumber WriteMetafile(const Figure& figure, const std::wstring& path);
system::ErrorNumber WritePng(const Figure& figure, const std::wstring& path);

// A window owns what is on the clipboard then; false while another program uses the clipboard, and
// when there is no memory for the picture.
bool CopyPicture(HWND owner, const Figure& figure);

}  // namespace corvane
