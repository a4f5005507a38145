// Any bytes as a section, and as a bulkhead arrangement read as one, drawn by the preview through
// the real geometry: every line is within reach of the picture, and no node is cut off.
#include "fuzz/fuzz.h"

#include <cmath>

#include "companions/grvelk/frame.h"
#include "database/section_block.h"
#include "database/section_view.h"
#include "fuzz/block_text.h"
#include "preview/section_preview.h"

namespace {

using namespace corvane;
using fuzz::Require;

constexpr int32_t kWidth = 300;
constexpr int32_t kHeight = 200;

void RequireNear(const grvelk::Pixel* points, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        constexpr int32_t kReach = grvelk::kBeyondFrame + 1;
        Require(points[i].x >= -kReach && points[i].x <= kWidth + kReach);
        Require(points[i].y >= -kReach && points[i].y <= kHeight + kReach);
    }
}

grvelk::Drawing CheckingDrawing() {
    grvelk::Drawing drawing{};
    drawing.width = kWidth;
    drawing.height = kHeight;
    drawing.dotsPerInch = 96;
    drawing.lines = [](void*, const grvelk::PixelLines& lines, grvelk::Pen pen) {
        size_t points = 0;
        for (size_t i = 0; i < lines.lineCount; ++i) {
            Require(lines.counts[i] >= 2);
            points += lines.counts[i];
        }
        Require(pen.width >= 1);
        RequireNear(lines.points, points);
    };
    drawing.fill = [](void*, const grvelk::Pixel* corners, size_t count, int32_t) {
        RequireNear(corners, count);
    };
    drawing.text = [](void*, grvelk::Pixel at, const char*, int32_t) { RequireNear(&at, 1); };
    return drawing;
}

Picture EmptyPicture(grvelk::Drawing& drawing) {
    Picture picture;
    picture.dc = &drawing;
    picture.width = 15.0F * kWidth;
    picture.height = 15.0F * kHeight;
    picture.clear = [](Picture&) {};
    picture.setFont = [](Picture&, float) {};
    picture.systemColour = [](int) { return int32_t{0}; };
    return picture;
}

// Nodes of a size that a ship may have, so that singles hold the frame exactly enough.
void RequireInFrame(const Section& section, const Picture& picture) {
    constexpr float kLargest_m = 10000;
    const double slack = 0.001 * picture.scaleWidth;
    for (int i = 0; i < section.strakeCount; ++i) {
        const Strake& strake = section.strakes[i];
        for (int k = 0; k < strake.nodeCount; ++k) {
            const Node& node = strake.nodes[k];
            if (!(std::abs(node.y) < kLargest_m && std::abs(node.z) < kLargest_m)) return;
        }
    }
    for (int i = 0; i < section.strakeCount; ++i) {
        const Strake& strake = section.strakes[i];
        for (int k = 0; k < strake.nodeCount; ++k) {
            const Node& node = strake.nodes[k];
            if (node.computed == 0) continue;
            const double right = picture.scaleLeft + picture.scaleWidth;
            const double bottom = picture.scaleTop + picture.scaleHeight;
            Require(node.y >= picture.scaleLeft - slack && node.y <= right + slack);
            Require(node.z >= bottom - slack && node.z <= picture.scaleTop + slack);
        }
    }
}

void Draw(std::string_view bytes, ModelKind kind) {
    SectionModel model;
    fuzz::ReadBytes(bytes, [&](TextReader& reader) { ReadSectionLines(reader, kind, model); });
    BasicShipData ship;
    for (const int item : {1, 2, 3, 9}) ship.MainData(item) = 20;
    // One mode in a run: most of its time goes into the drawing.
    model.symmetryMode = static_cast<int32_t>(bytes.size() % 4);
    LibraryView view;
    MakeLibraryView(model, view);
    grvelk::Drawing drawing = CheckingDrawing();
    Picture picture = EmptyPicture(drawing);
    DrawSectionPreview(view.section, ship, picture);
    if (view.section.geometryPresent != 0) RequireInFrame(view.section, picture);
}

}  // namespace

CORVANE_FUZZ_TARGET(preview) {
    if (bytes.size() > 16 * 1024) return;
    Draw(bytes, ModelKind::kSection);
    Draw(bytes, ModelKind::kBulkhead);
}
