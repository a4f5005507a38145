#include "ui/pictures/picture_output.h"

// After windows.h.
#include <objbase.h>
#include <wincodec.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <span>
#include <vector>

#include "ui/base/system_services.h"
#include "ui/pictures/figure_player.h"

namespace corvane {
namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kMmPerMetre = 1000;
constexpr int kBytesPerPixel = 3;

// ---- Metafiles ---------------------------------------------------------------------------------

// Records the figure; without a path in memory. Null when the system cannot.
HENHMETAFILE RecordMetafile(const Figure& figure, const wchar_t* path) {
    constexpr double kUnitsPerMm = 100;  // those of the frame; the drawing has the same
    constexpr wchar_t kDescription[] = L"Corvane\0Section\0";
    const RECT frame{0, 0, static_cast<LONG>(std::lround(figure.width_mm * kUnitsPerMm)),
                     static_cast<LONG>(std::lround(figure.height_mm * kUnitsPerMm))};
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateEnhMetaFileW(screen, path, &frame, kDescription);
    if (dc != nullptr) {
        SetMapMode(dc, MM_ANISOTROPIC);
        SetWindowExtEx(dc, GetDeviceCaps(screen, HORZSIZE) * static_cast<int>(kUnitsPerMm),
                       GetDeviceCaps(screen, VERTSIZE) * static_cast<int>(kUnitsPerMm), nullptr);
        SetViewportExtEx(dc, GetDeviceCaps(screen, HORZRES), GetDeviceCaps(screen, VERTRES),
                         nullptr);
        PlayFigure({dc, kUnitsPerMm}, figure);
    }
    ReleaseDC(nullptr, screen);
    return dc == nullptr ? nullptr : CloseEnhMetaFile(dc);
}

// ---- Bitmaps -----------------------------------------------------------------------------------

SIZE PixelsOf(const Figure& figure, int dotsPerInch) {
    const auto pixels = [dotsPerInch](double length_mm) {
        return std::max(1L, std::lround(length_mm * dotsPerInch / kMmPerInch));
    };
    return {pixels(figure.width_mm), pixels(figure.height_mm)};
}

BITMAPINFOHEADER HeaderOf(SIZE size, int dotsPerInch) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = size.cx;
    header.biHeight = size.cy;
    header.biPlanes = 1;
    header.biBitCount = 8 * kBytesPerPixel;
    header.biCompression = BI_RGB;
    header.biXPelsPerMeter = static_cast<LONG>(std::lround(dotsPerInch * kMmPerMetre / kMmPerInch));
    header.biYPelsPerMeter = header.biXPelsPerMeter;
    return header;
}

// Some rows of a picture; what is in it is drawn with the rows above it left out.
class Band {
public:
    Band(SIZE size, int dotsPerInch) : size_(size), dotsPerInch_(dotsPerInch) {
        BITMAPINFO info{HeaderOf(size, dotsPerInch), {}};
        void* bits = nullptr;
        dc_ = CreateCompatibleDC(nullptr);
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        bits_ = static_cast<std::byte*>(bits);
        before_ = bitmap_ == nullptr ? nullptr : SelectObject(dc_, bitmap_);
    }
    ~Band() {
        if (before_ != nullptr) SelectObject(dc_, before_);
        if (bitmap_ != nullptr) DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Band(const Band&) = delete;
    Band& operator=(const Band&) = delete;

    bool IsThere() const { return bits_ != nullptr; }
    // From the lowest row up, each with an end at 4 bytes.
    size_t Stride() const { return (static_cast<size_t>(size_.cx) * kBytesPerPixel + 3) / 4 * 4; }
    std::span<std::byte> Bytes() const { return {bits_, Stride() * static_cast<size_t>(size_.cy)}; }

    void Draw(const Figure& figure, LONG rowsAbove) const {
        const RECT all{0, 0, size_.cx, size_.cy};
        FillRect(dc_, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        PlayFigure({dc_, dotsPerInch_ / kMmPerInch, {0, -rowsAbove}}, figure);
        GdiFlush();
    }

private:
    SIZE size_;
    int dotsPerInch_;
    HDC dc_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
    std::byte* bits_ = nullptr;
};

// ---- PNG ---------------------------------------------------------------------------------------

struct PngFile {
    Owned<IWICImagingFactory> factory;
    Owned<IWICStream> stream;
    Owned<IWICBitmapEncoder> encoder;
    Owned<IWICBitmapFrameEncode> frame;
};

HRESULT OpenPng(const std::wstring& path, PngFile& png) {
    HRESULT result = CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_IWICImagingFactory, png.factory.Place());
    if (SUCCEEDED(result)) result = png.factory->CreateStream(&png.stream.pointer);
    if (SUCCEEDED(result)) result = png.stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE);
    if (SUCCEEDED(result)) {
        result = png.factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &png.encoder.pointer);
    }
    if (SUCCEEDED(result)) {
        result = png.encoder->Initialize(png.stream.pointer, WICBitmapEncoderNoCache);
    }
    if (SUCCEEDED(result)) result = png.encoder->CreateNewFrame(&png.frame.pointer, nullptr);
    if (SUCCEEDED(result)) result = png.frame->Initialize(nullptr);
    return result;
}

HRESULT DescribePng(SIZE size, IWICBitmapFrameEncode& frame) {
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    HRESULT result = frame.SetSize(static_cast<UINT>(size.cx), static_cast<UINT>(size.cy));
    if (SUCCEEDED(result)) result = frame.SetResolution(kPngResolution, kPngResolution);
    if (SUCCEEDED(result)) result = frame.SetPixelFormat(&format);
    if (SUCCEEDED(result) && format != GUID_WICPixelFormat24bppBGR) return E_FAIL;
    return result;
}

// The rows from the uppermost down, as the format has them; a bitmap has them the other way round.
HRESULT WriteRows(const Band& band, LONG count, IWICBitmapFrameEncode& frame) {
    const auto stride = static_cast<UINT>(band.Stride());
    const std::span<std::byte> bytes = band.Bytes();
    HRESULT result = S_OK;
    for (LONG row = 1; row <= count && SUCCEEDED(result); ++row) {
        std::byte* start = bytes.data() + bytes.size() - static_cast<size_t>(row) * stride;
        result = frame.WritePixels(1, stride, stride, reinterpret_cast<BYTE*>(start));
    }
    return result;
}

HRESULT WriteBands(const Figure& figure, SIZE size, IWICBitmapFrameEncode& frame) {
    constexpr LONG kRows = 512;
    const Band band({size.cx, std::min(kRows, size.cy)}, kPngResolution);
    if (!band.IsThere()) return E_OUTOFMEMORY;
    HRESULT result = S_OK;
    for (LONG top = 0; top < size.cy && SUCCEEDED(result); top += kRows) {
        band.Draw(figure, top);
        result = WriteRows(band, std::min(kRows, size.cy - top), frame);
    }
    return result;
}

system::ErrorNumber ErrorOf(HRESULT result) {
    if (SUCCEEDED(result)) return system::kErrorNone;
    const bool isOfSystem = HRESULT_FACILITY(result) == FACILITY_WIN32;
    return static_cast<system::ErrorNumber>(isOfSystem ? HRESULT_CODE(result) : result);
}

// ---- Clipboard ---------------------------------------------------------------------------------

bool PutMetafile(const Figure& figure) {
    const HENHMETAFILE metafile = RecordMetafile(figure, nullptr);
    if (metafile == nullptr) return false;
    // The system owns it once it has taken it.
    if (SetClipboardData(CF_ENHMETAFILE, metafile) != nullptr) return true;
    DeleteEnhMetaFile(metafile);
    return false;
}

bool PutBitmap(const OwnClipboard& clipboard, const Figure& figure) {
    const SIZE size = PixelsOf(figure, kClipboardResolution);
    const Band band(size, kClipboardResolution);
    if (!band.IsThere()) return false;
    band.Draw(figure, 0);
    const BITMAPINFOHEADER header = HeaderOf(size, kClipboardResolution);
    std::vector<std::byte> bytes(sizeof header + band.Bytes().size());
    std::memcpy(bytes.data(), &header, sizeof header);
    std::ranges::copy(band.Bytes(), bytes.begin() + sizeof header);
    return clipboard.Put(CF_DIB, bytes);
}

}  // namespace

system::ErrorNumber WriteMetafile(const Figure& figure, const std::wstring& path) {
    const HENHMETAFILE metafile = RecordMetafile(figure, path.c_str());
    if (metafile == nullptr) {
        const DWORD error = GetLastError();
        return error == ERROR_SUCCESS ? ERROR_WRITE_FAULT : error;
    }
    DeleteEnhMetaFile(metafile);  // the handle alone; the file stays
    return system::kErrorNone;
}

system::ErrorNumber WritePng(const Figure& figure, const std::wstring& path) {
    const ComScope com;
    const SIZE size = PixelsOf(figure, kPngResolution);
    PngFile png;
    HRESULT result = OpenPng(path, png);
    if (SUCCEEDED(result)) result = DescribePng(size, *png.frame.pointer);
    if (SUCCEEDED(result)) result = WriteBands(figure, size, *png.frame.pointer);
    if (SUCCEEDED(result)) result = png.frame->Commit();
    if (SUCCEEDED(result)) result = png.encoder->Commit();
    return ErrorOf(result);
}

bool CopyPicture(HWND owner, const Figure& figure) {
    const OwnClipboard clipboard(owner);
    return clipboard.IsOpen() && PutMetafile(figure) && PutBitmap(clipboard, figure);
}

}  // namespace corvane
