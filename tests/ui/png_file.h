// A PNG file, looked at without the library that wrote it: its chunks and their checksums; its
// pixels through the system's decoder.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane::test {

struct PngFile {
    bool isSound = false;  // signature, order and checksums of the chunks
    uint32_t width = 0, height = 0;
    uint32_t pixelsPerMetre = 0;
    std::vector<uint32_t> pixels;  // 0x00RRGGBB, from the upper left corner; empty: not decoded

    uint32_t At(uint32_t column, uint32_t row) const { return pixels.at(row * width + column); }
};

// Of the bytes of a file alone.
PngFile ReadPngChunks(const std::string& bytes);
// With its pixels.
PngFile ReadPng(const std::wstring& path);

}  // namespace corvane::test
