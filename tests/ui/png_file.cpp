#include "tests/ui/png_file.h"

#include "platform/win32/win32.h"
// windows.h must come first.
#include <objbase.h>
#include <wincodec.h>

#include "tests/support/support.h"

namespace corvane::test {
namespace {

uint32_t NumberAt(const std::string& bytes, size_t at) {
    uint32_t number = 0;
    for (size_t i = 0; i < 4; ++i) number = number << 8 | static_cast<uint8_t>(bytes.at(at + i));
    return number;
}

// The checksum of the format: the remainder of the bits by 0xEDB88320, both reversed.
uint32_t Checksum(const std::string& bytes) {
    uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit) sum = sum >> 1 ^ ((sum & 1) != 0 ? 0xEDB88320 : 0);
    }
    return ~sum;
}

void ReadPixels(const std::wstring& path, PngFile& png) {
    IWICImagingFactory* factory = nullptr;
    IWICBitmapDecoder* decoder = nullptr;
    IWICBitmapFrameDecode* frame = nullptr;
    IWICBitmapSource* source = nullptr;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    png.pixels.resize(size_t{png.width} * png.height);
    const UINT stride = png.width * 4;
    const bool isRead =
        SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                   IID_IWICImagingFactory, reinterpret_cast<void**>(&factory))) &&
        SUCCEEDED(factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ,
                                                     WICDecodeMetadataCacheOnLoad, &decoder)) &&
        SUCCEEDED(decoder->GetFrame(0, &frame)) &&
        SUCCEEDED(WICConvertBitmapSource(GUID_WICPixelFormat32bppBGR, frame, &source)) &&
        SUCCEEDED(source->CopyPixels(nullptr, stride, stride * png.height,
                                     reinterpret_cast<BYTE*>(png.pixels.data())));
    if (!isRead) png.pixels.clear();
    for (uint32_t& pixel : png.pixels) pixel &= 0xFFFFFF;
    for (IUnknown* object : std::initializer_list<IUnknown*>{source, frame, decoder, factory}) {
        if (object != nullptr) object->Release();
    }
    CoUninitialize();
}

}  // namespace

PngFile ReadPngChunks(const std::string& bytes) {
    PngFile png;
    png.isSound = bytes.starts_with("\x89PNG\r\n\x1A\n");
    std::string last;
    for (size_t at = 8; png.isSound && at + 12 <= bytes.size();) {
        const uint32_t size = NumberAt(bytes, at);
        if (size > bytes.size() - at - 12) break;
        last = bytes.substr(at + 4, 4);
        png.isSound = (at > 8 || last == "IHDR") &&
                      Checksum(bytes.substr(at + 4, size + 4)) == NumberAt(bytes, at + 8 + size);
        if (last == "IHDR") png.width = NumberAt(bytes, at + 8);
        if (last == "IHDR") png.height = NumberAt(bytes, at + 12);
        if (last == "pHYs") png.pixelsPerMetre = NumberAt(bytes, at + 8);
        at += size + 12;
    }
    png.isSound = png.isSound && last == "IEND";
    return png;
}

PngFile ReadPng(const std::wstring& path) {
    PngFile png = ReadPngChunks(ReadFileBytes(path));
    if (png.isSound) ReadPixels(path, png);
    return png;
}

}  // namespace corvane::test
