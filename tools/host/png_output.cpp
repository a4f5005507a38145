#include "tools/host/png_output.h"

#include <dlfcn.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "text/utf8.h"

namespace corvane {
namespace {

// ---- The library -------------------------------------------------------------------------------

// What it has made, which is only given back to it.
struct Surface;
struct Context;

struct TextExtents {
    double xBearing, yBearing, width, height, xAdvance, yAdvance;
};

// Takes bytes of a file; 0 when it could.
using TakeBytes = int (*)(void* taker, const unsigned char* bytes, unsigned count);

// Its functions that are used here. A status is 0 where all is well.
struct Cairo {
    Surface* (*createSurface)(int format, int width, int height);
    int (*statusOfSurface)(Surface*);
    int (*writePng)(Surface*, TakeBytes take, void* taker);
    void (*destroySurface)(Surface*);
    Context* (*create)(Surface*);
    int (*statusOf)(Context*);
    void (*destroy)(Context*);
    void (*scale)(Context*, double x, double y);
    void (*setColour)(Context*, double red, double green, double blue);
    void (*paint)(Context*);
    void (*moveTo)(Context*, double x, double y);
    void (*lineTo)(Context*, double x, double y);
    void (*setLineWidth)(Context*, double width);
    void (*setLineCap)(Context*, int cap);
    void (*setLineJoin)(Context*, int join);
    void (*stroke)(Context*);
    void (*setFillRule)(Context*, int rule);
    void (*fill)(Context*);
    void (*selectFont)(Context*, const char* family, int slant, int weight);
    void (*setFontSize)(Context*, double size);
    void (*measureText)(Context*, const char* text, TextExtents*);
    void (*showText)(Context*, const char* text);
};
constexpr int kRedGreenBlue = 1;
constexpr int kRound = 1;
constexpr int kEvenOdd = 1;

template <class Function>
bool Find(void* library, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(dlsym(library, name));
    return function != nullptr;
}

std::optional<Cairo> LoadCairo() {
    void* const library = dlopen("libcairo.so.2", RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return {};
    Cairo cairo{};
    const bool isWhole = Find(library, "cairo_image_surface_create", cairo.createSurface) &&
                         Find(library, "cairo_surface_status", cairo.statusOfSurface) &&
                         Find(library, "cairo_surface_write_to_png_stream", cairo.writePng) &&
                         Find(library, "cairo_surface_destroy", cairo.destroySurface) &&
                         Find(library, "cairo_create", cairo.create) &&
                         Find(library, "cairo_status", cairo.statusOf) &&
                         Find(library, "cairo_destroy", cairo.destroy) &&
                         Find(library, "cairo_scale", cairo.scale) &&
                         Find(library, "cairo_set_source_rgb", cairo.setColour) &&
                         Find(library, "cairo_paint", cairo.paint) &&
                         Find(library, "cairo_move_to", cairo.moveTo) &&
                         Find(library, "cairo_line_to", cairo.lineTo) &&
                         Find(library, "cairo_set_line_width", cairo.setLineWidth) &&
                         Find(library, "cairo_set_line_cap", cairo.setLineCap) &&
                         Find(library, "cairo_set_line_join", cairo.setLineJoin) &&
                         Find(library, "cairo_stroke", cairo.stroke) &&
                         Find(library, "cairo_set_fill_rule", cairo.setFillRule) &&
                         Find(library, "cairo_fill", cairo.fill) &&
                         Find(library, "cairo_select_font_face", cairo.selectFont) &&
                         Find(library, "cairo_set_font_size", cairo.setFontSize) &&
                         Find(library, "cairo_text_extents", cairo.measureText) &&
                         Find(library, "cairo_show_text", cairo.showText);
    return isWhole ? std::optional(cairo) : std::nullopt;
}

// Null where the system does not have it.
const Cairo* TheCairo() {
    static const std::optional<Cairo> cairo = LoadCairo();
    return cairo ? &*cairo : nullptr;
}

// ---- The picture -------------------------------------------------------------------------------

constexpr double kDotsPerMm = 300 / 25.4;

// A figure on a surface, in millimetres.
struct Canvas {
    const Cairo& cairo;
    Context* context;
};

void SetColour(const Canvas& canvas, int32_t colour) {
    const auto part = [&](int shift) { return (colour >> shift & 0xFF) / 255.0; };
    canvas.cairo.setColour(canvas.context, part(0), part(8), part(16));
}

void Trace(const Canvas& canvas, std::span<const SheetPoint> points) {
    canvas.cairo.moveTo(canvas.context, points.front().x, points.front().y);
    for (const SheetPoint& point : points.subspan(1)) {
        canvas.cairo.lineTo(canvas.context, point.x, point.y);
    }
}

// `point` is at half the height of a capital.
void DrawText(const Canvas& canvas, const FigureItem& item, SheetPoint point,
              const std::wstring& text) {
    const auto& [cairo, context] = canvas;
    const std::string bytes = Utf8Text(text);
    TextExtents extents{};
    cairo.setFontSize(context, item.size_mm);
    cairo.measureText(context, bytes.c_str(), &extents);
    const double parts[] = {0, 0.5, 1};
    const double left = point.x - parts[static_cast<int>(item.side)] * extents.xAdvance;
    cairo.moveTo(context, left, point.y + kCapitalHeight / 2 * item.size_mm);
    cairo.showText(context, bytes.c_str());
}

void DrawItem(const Canvas& canvas, const Figure& figure, const FigureItem& item) {
    const auto& [cairo, context] = canvas;
    const std::span<const SheetPoint> points = PointsOf(figure, item);
    SetColour(canvas, item.colour);
    if (item.shape == FigureShape::kText) {
        return DrawText(canvas, item, points.front(), figure.texts[item.text]);
    }
    Trace(canvas, points);
    if (item.shape == FigureShape::kArea) return cairo.fill(context);
    cairo.setLineWidth(context, std::max(item.size_mm, 1 / kDotsPerMm));
    cairo.stroke(context);
}

void DrawAll(const Canvas& canvas, const Figure& figure) {
    constexpr int32_t kWhite = 0xFFFFFF;
    const auto& [cairo, context] = canvas;
    SetColour(canvas, kWhite);
    cairo.paint(context);
    cairo.scale(context, kDotsPerMm, kDotsPerMm);
    cairo.setLineCap(context, kRound);
    cairo.setLineJoin(context, kRound);
    cairo.setFillRule(context, kEvenOdd);
    cairo.selectFont(context, "sans-serif", 0, 0);
    for (const FigureItem& item : figure.items) DrawItem(canvas, figure, item);
}

int AppendBytes(void* taker, const unsigned char* bytes, unsigned count) {
    static_cast<std::string*>(taker)->append(reinterpret_cast<const char*>(bytes), count);
    return 0;
}

// The bytes of the file; empty when the library could not make them.
std::string MakePng(const Cairo& cairo, const Figure& figure) {
    const auto pixels = [](double length_mm) {
        return std::max(1, static_cast<int>(std::lround(length_mm * kDotsPerMm)));
    };
    Surface* const surface =
        cairo.createSurface(kRedGreenBlue, pixels(figure.width_mm), pixels(figure.height_mm));
    std::string bytes;
    if (cairo.statusOfSurface(surface) == 0) {
        const Canvas canvas{cairo, cairo.create(surface)};
        DrawAll(canvas, figure);
        const bool isDrawn = cairo.statusOf(canvas.context) == 0;
        cairo.destroy(canvas.context);
        if (!isDrawn || cairo.writePng(surface, AppendBytes, &bytes) != 0) bytes.clear();
    }
    cairo.destroySurface(surface);
    return bytes;
}

// The file's resolution comes after its header: 11,811 dots per metre in both directions, with the
// check sum of these bytes.
void InsertResolution(std::string& png) {
    constexpr size_t kHeaderEnd = 33;
    constexpr std::string_view kResolution(
        "\0\0\0\x09pHYs\0\0\x2E\x23\0\0\x2E\x23\x01\x78\xA5\x3F\x76", 21);
    png.insert(kHeaderEnd, kResolution);
}

system::ErrorNumber WriteFile(const std::wstring& path, const std::string& bytes) {
    system::File file;
    system::ErrorNumber error = system::CreateForWriting(path, file);
    if (error != system::kErrorNone) return error;
    error = system::WriteBytes(file, bytes.data(), bytes.size());
    const system::ErrorNumber closing = system::CloseFile(file);
    return error == system::kErrorNone ? closing : error;
}

system::ErrorNumber WritePng(const Figure& figure, const std::wstring& path) {
    std::string png = MakePng(*TheCairo(), figure);
    if (png.empty()) return system::kErrorIoDevice;
    InsertResolution(png);
    return WriteFile(path, png);
}

}  // namespace

FigureWriter FindPngWriter() {
    return TheCairo() != nullptr ? WritePng : nullptr;
}

}  // namespace corvane
