// TraceSection with GDI: pixels of a bitmap.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <utility>
#include <vector>

#include "platform/win32/win32.h"
#include "tests/companions/sample_section.h"
#include "tests/support/win32/gui_objects.h"

namespace corvane {
namespace {

constexpr int32_t kWhite = 0x00FFFFFF;
constexpr int32_t kPlating = 0x00FF0000;
constexpr int32_t kStiffeners = 0x00008000;
constexpr int32_t kLimits = 0x00000080;
constexpr int32_t kCompartments = 0x00E0E0E0;
constexpr int32_t kCentreLine = 0x00808080;

// A white bitmap of 32 bits a pixel in its own device context.
struct Canvas {
    int width, height;
    uint32_t* bits = nullptr;
    HBITMAP bitmap = nullptr;
    HDC dc = nullptr;
    HGDIOBJ before = nullptr;

    Canvas(int pixelsWide, int pixelsHigh) : width(pixelsWide), height(pixelsHigh) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* memory = nullptr;
        dc = CreateCompatibleDC(nullptr);
        bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &memory, nullptr, 0);
        bits = static_cast<uint32_t*>(memory);
        before = SelectObject(dc, bitmap);
        Clear();
    }
    ~Canvas() {
        SelectObject(dc, before);
        DeleteObject(bitmap);
        DeleteDC(dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    void Clear() const {
        GdiFlush();
        std::fill(bits, bits + width * height, uint32_t{kWhite});
    }
    // 0x00BBGGRR.
    int32_t At(int x, int y) const {
        GdiFlush();
        const uint32_t pixel = bits[y * width + x];
        return static_cast<int32_t>((pixel & 0xFF) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 0xFF));
    }
    std::vector<uint32_t> Pixels() const {
        GdiFlush();
        return {bits, bits + width * height};
    }
    int Count(int32_t colour) const {
        int count = 0;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) count += At(x, y) == colour ? 1 : 0;
        }
        return count;
    }
};

// At 10 px a metre: the origin is at (150, 140).
struct GdiSectionDrawing : testing::Test {
    Canvas canvas{300, 160};
    test::SampleSection sample;

    GdiSectionDrawing() {
        sample.colours[kColourPlating] = kPlating;
        sample.colours[kColourStiffener] = kStiffeners;
        sample.colours[kColourStrakeLimit] = kLimits;
        sample.colours[kColourCompartment] = kCompartments;
        sample.colours[kColourCentreLine] = kCentreLine;
    }
    ~GdiSectionDrawing() override = default;

    void Draw() {
        ScaleWindow(nullptr, canvas.dc, -15, -2, 15, 14, 200);
        TraceSection(canvas.dc, &sample.section, &sample.parameters);
    }
    // Whether a pixel of the colour is within 1 px of the point.
    bool Near(int32_t colour, int x, int y) const {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                if (canvas.At(x + dx, y + dy) == colour) return true;
            }
        }
        return false;
    }
};

TEST_F(GdiSectionDrawing, PlatingLiesWhereTheSectionIs) {
    Draw();
    EXPECT_TRUE(Near(kPlating, 225, 20)) << "deck";
    EXPECT_TRUE(Near(kPlating, 225, 140)) << "bottom";
    EXPECT_TRUE(Near(kPlating, 270, 60)) << "side";
    EXPECT_TRUE(Near(kPlating, 264, 134)) << "bilge";
    EXPECT_TRUE(Near(kPlating, 75, 20)) << "mirrored deck";
    EXPECT_TRUE(Near(kPlating, 30, 60)) << "mirrored side";
    EXPECT_EQ(canvas.At(225, 60), kWhite) << "hold";
    EXPECT_EQ(canvas.At(290, 60), kWhite) << "beside the ship";
}

TEST_F(GdiSectionDrawing, OneSideLeavesTheOtherWhite) {
    sample.section.symmetryMode = 0;
    Draw();
    for (int x = 0; x < 140; ++x) {
        for (int y = 0; y < canvas.height; ++y) ASSERT_EQ(canvas.At(x, y), kWhite) << x << ' ' << y;
    }
    EXPECT_TRUE(Near(kPlating, 225, 20));
}

TEST_F(GdiSectionDrawing, EverySlotShowsItsColour) {
    Draw();
    EXPECT_EQ(canvas.At(225, 130), kCompartments);
    EXPECT_EQ(canvas.At(75, 130), kCompartments);
    EXPECT_EQ(canvas.At(190, 137), kStiffeners) << "flat bar on the bottom";
    EXPECT_TRUE(Near(kLimits, 200, 143)) << "plate end";
    EXPECT_EQ(canvas.At(150, 136), kCentreLine) << "first dash";
    for (const int32_t colour : {kPlating, kStiffeners, kLimits, kCompartments, kCentreLine}) {
        EXPECT_GT(canvas.Count(colour), 10) << colour;
    }
}

TEST_F(GdiSectionDrawing, NoOtherColourAppears) {
    Draw();
    int known = canvas.Count(kWhite);
    for (const int32_t colour : {kPlating, kStiffeners, kLimits, kCompartments, kCentreLine}) {
        known += canvas.Count(colour);
    }
    EXPECT_EQ(known, canvas.width * canvas.height) << "lines are crisp";
}

TEST_F(GdiSectionDrawing, SamePictureTwice) {
    Draw();
    const std::vector<uint32_t> first = canvas.Pixels();
    canvas.Clear();
    Draw();
    EXPECT_EQ(canvas.Pixels(), first);
}

TEST_F(GdiSectionDrawing, DeviceContextIsLeftAsItWas) {
    SetTextColor(canvas.dc, RGB(1, 2, 3));
    SetBkMode(canvas.dc, OPAQUE);
    const HGDIOBJ pen = GetCurrentObject(canvas.dc, OBJ_PEN);
    const HGDIOBJ brush = GetCurrentObject(canvas.dc, OBJ_BRUSH);
    sample.parameters.drawNumbers = -1;
    Draw();
    EXPECT_EQ(GetTextColor(canvas.dc), RGB(1, 2, 3));
    EXPECT_EQ(GetBkMode(canvas.dc), OPAQUE);
    EXPECT_EQ(GetCurrentObject(canvas.dc, OBJ_PEN), pen);
    EXPECT_EQ(GetCurrentObject(canvas.dc, OBJ_BRUSH), brush);
    EXPECT_EQ(GetCurrentObject(canvas.dc, OBJ_BITMAP), canvas.bitmap);
}

TEST_F(GdiSectionDrawing, NumbersAreWrittenInTheirColour) {
    sample.colours[kColourText] = 0x00123456;
    sample.parameters.drawNumbers = -1;
    sample.parameters.drawPlating = 0;
    Draw();
    EXPECT_GT(canvas.Count(0x00123456), 3);
}

TEST_F(GdiSectionDrawing, ThousandDrawingsLeakNoObject) {
    sample.parameters.drawNumbers = -1;
    Draw();
    const test::GuiObjects before = test::CountGuiObjects();
    for (int i = 0; i < 1000; ++i) Draw();
    EXPECT_EQ(test::CountGuiObjects(), before);
}

TEST_F(GdiSectionDrawing, FrameIsTheClientAreaOfTheWindow) {
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 150, 80, nullptr,
                                        nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    ScaleWindow(window, canvas.dc, -15, -2, 15, 14, 200);
    TraceSection(canvas.dc, &sample.section, &sample.parameters);
    EXPECT_TRUE(Near(kPlating, 112, 10)) << "deck at half the size";
    EXPECT_EQ(canvas.At(225, 130), kWhite);
    DestroyWindow(window);
    canvas.Clear();
    TraceSection(canvas.dc, &sample.section, &sample.parameters);
    EXPECT_EQ(canvas.Count(kWhite), canvas.width * canvas.height) << "the window is gone";
}

TEST_F(GdiSectionDrawing, HugeSectionIsCutOffNotWrappedAround) {
    for (StrakeItem& item : sample.contents[1].items) item.y2 = 1e30F;
    for (StrakeItem& item : sample.contents[2].items) item.z2 = -1e30F;
    Draw();
    EXPECT_TRUE(Near(kPlating, 295, 20));
    EXPECT_EQ(canvas.At(225, 60), kWhite);
}

// What a metafile holds of the lines of a drawing, ready for one call of GDI for each pen.
struct LinesOfPen {
    std::vector<POINT> points;
    std::vector<DWORD> counts;
};

void Append(LinesOfPen& lines, const POINTS* points, DWORD count) {
    for (DWORD i = 0; i < count; ++i) lines.points.push_back({points[i].x, points[i].y});
}

// The lines of each pixel of a pen have one record; the pen of 2 px comes first.
constexpr size_t kPixelsOfBroadPen = 4;

int CALLBACK CollectLines(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM context) {
    auto& pens = *reinterpret_cast<std::vector<LinesOfPen>*>(context);
    if (record->iType == EMR_POLYPOLYLINE16) {
        const auto& lines = *reinterpret_cast<const EMRPOLYPOLYLINE16*>(record);
        LinesOfPen& pen = pens.emplace_back();
        pen.counts.assign(lines.aPolyCounts, lines.aPolyCounts + lines.nPolys);
        Append(pen, reinterpret_cast<const POINTS*>(lines.aPolyCounts + lines.nPolys), lines.cpts);
    }
    return 1;
}

// The lines of a section as TraceSection draws them in the frame of Draw, for each pen.
std::vector<LinesOfPen> RecordedLines(Section& section, DrawingParameters& parameters) {
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 300, 160, nullptr,
                                        nullptr, nullptr, nullptr);
    const HDC recorder = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    ScaleWindow(window, recorder, -15, -2, 15, 14, 200);
    TraceSection(recorder, &section, &parameters);
    const HENHMETAFILE file = CloseEnhMetaFile(recorder);
    std::vector<LinesOfPen> lines;
    EnumEnhMetaFile(nullptr, file, CollectLines, &lines, nullptr);
    DeleteEnhMetaFile(file);
    DestroyWindow(window);
    return lines;
}

// Pixels of plating that have no plating on the other canvas within 1 px.
int PixelsBeside(const Canvas& canvas, const Canvas& other) {
    int beside = 0;
    for (int y = 1; y < canvas.height - 1; ++y) {
        for (int x = 1; x < canvas.width - 1; ++x) {
            if (canvas.At(x, y) != kPlating) continue;
            bool isNear = false;
            for (int i = 0; i < 9; ++i)
                isNear |= other.At(x + i % 3 - 1, y + i / 3 - 1) == kPlating;
            beside += isNear ? 0 : 1;
        }
    }
    return beside;
}

TEST_F(GdiSectionDrawing, LineOfABroadPenIsThatOfTheSystemButForAPixel) {
    constexpr int kNodes = 300;
    test::TestSection wave;
    std::vector<Node> nodes;
    for (int i = 0; i < kNodes; ++i) {
        const auto part = static_cast<float>(i) / kNodes;
        nodes.push_back(test::GivenNode(14 * part, 7 + 4 * std::sin(30 * part)));
    }
    wave.Add(nodes);
    wave.Compute();
    wave.section.symmetryMode = 2;
    wave.section.geometryPresent = 1;
    const std::vector<LinesOfPen> recorded = RecordedLines(wave.section, sample.parameters);
    ASSERT_GE(recorded.size(), kPixelsOfBroadPen);
    ASSERT_EQ(recorded.front().counts.size(), 1U);
    const std::vector<POINT>& line = recorded.front().points;
    const Canvas inOneCall(300, 160);
    const HPEN pen = CreatePen(PS_SOLID, 2, kPlating);
    const HGDIOBJ before = SelectObject(inOneCall.dc, pen);
    Polyline(inOneCall.dc, line.data(), static_cast<int>(line.size()));
    SelectObject(inOneCall.dc, before);
    DeleteObject(pen);
    ScaleWindow(nullptr, canvas.dc, -15, -2, 15, 14, 200);
    TraceSection(canvas.dc, &wave.section, &sample.parameters);
    EXPECT_GT(canvas.Count(kPlating), 300);
    EXPECT_NEAR(canvas.Count(kPlating), inOneCall.Count(kPlating), canvas.Count(kPlating) * 0.15);
    EXPECT_EQ(PixelsBeside(canvas, inOneCall), 0);
    EXPECT_EQ(PixelsBeside(inOneCall, canvas), 0);
}

// 30 strakes with 4 nodes or more each, and 200 stiffeners.
void FillBigSection(test::SampleSection& sample) {
    const test::TestSection::Parts shell = sample.contents[0];
    sample.contents.assign(30, shell);
    for (test::TestSection::Parts& strake : sample.contents) strake.stiffeners[1].count = 3;
    sample.Link();
}

// Seconds of the quickest of several runs.
template <class Draw>
double QuickestOf(int runs, Draw draw) {
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    double quickest = 1e9;
    for (int i = 0; i < runs; ++i) {
        LARGE_INTEGER from{};
        LARGE_INTEGER to{};
        QueryPerformanceCounter(&from);
        draw();
        GdiFlush();
        QueryPerformanceCounter(&to);
        quickest = std::min(quickest, static_cast<double>(to.QuadPart - from.QuadPart) /
                                          static_cast<double>(frequency.QuadPart));
    }
    return quickest;
}

TEST_F(GdiSectionDrawing, CostsLittleMoreThanItsLines) {
    FillBigSection(sample);
    sample.parameters.drawCompartments = 0;
    const std::vector<LinesOfPen> lines = RecordedLines(sample.section, sample.parameters);
    ASSERT_EQ(lines.size(), kPixelsOfBroadPen + 3) << "plating, limits, stiffeners, centre line";
    const HPEN pen = CreatePen(PS_SOLID, 1, kPlating);
    SelectObject(canvas.dc, pen);
    const double bare = QuickestOf(40, [&] {
        for (const LinesOfPen& of : lines) {
            PolyPolyline(canvas.dc, of.points.data(), of.counts.data(),
                         static_cast<DWORD>(of.counts.size()));
        }
    });
    SelectObject(canvas.dc, GetStockObject(BLACK_PEN));
    DeleteObject(pen);
    const double traced = QuickestOf(40, [&] { Draw(); });
    std::printf("bare lines %.3f ms, TraceSection %.3f ms, ratio %.2f\n", bare * 1000,
                traced * 1000, traced / bare);
    // The aim is 1.5; a busy machine is allowed more.
    EXPECT_LT(traced, bare * 4);
}

}  // namespace
}  // namespace corvane
