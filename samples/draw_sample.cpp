// Draws the sections of a database as the main window's preview does, each into an SVG file:
//
//     draw_sample <database> <prefix of the files> [<width>]
#include <cstdio>
#include <cstdlib>
#include <string>

#include "bsd/basic_ship_data.h"
#include "bsd/bsd_file.h"
#include "database/listing.h"
#include "database/section_block.h"
#include "database/section_view.h"
#include "platform/system.h"
#include "preview/section_preview.h"
#include "tests/companions/host/drawing_recorder.h"

namespace corvane::samples {
namespace {

Picture PictureOf(test::DrawingRecorder& recorder) {
    constexpr float kTwipsPerPixel = 15;
    Picture picture;
    picture.dc = &recorder.drawing;
    picture.width = kTwipsPerPixel * static_cast<float>(recorder.drawing.width);
    picture.height = kTwipsPerPixel * static_cast<float>(recorder.drawing.height);
    picture.clear = [](Picture&) {};
    picture.setFont = [](Picture&, float) {};
    constexpr int kButtonFace = 15;
    picture.systemColour = [](int index) { return index == kButtonFace ? 0xF0F0F0 : 0xA0A0A0; };
    return picture;
}

bool DrawModel(const std::wstring& path, int32_t number, const std::string& prefix, int width) {
    BasicShipData bsd;
    SectionModel model;
    if (!LoadBsdFromDatabase(path, bsd) || !ReadSectionBlock(path, number, false, model)) {
        return false;
    }
    LibraryView view;
    MakeLibraryView(model, view);
    test::DrawingRecorder recorder(width, width * 5 / 4);
    Picture picture = PictureOf(recorder);
    DrawSectionPreview(view.section, bsd, picture);

    const std::string name = prefix + std::to_string(number) + ".svg";
    std::FILE* file = std::fopen(name.c_str(), "w");
    if (file == nullptr) return false;
    const bool written = std::fputs(recorder.Svg().c_str(), file) >= 0;
    return std::fclose(file) == 0 && written;
}

}  // namespace
}  // namespace corvane::samples

int main(int count, char** arguments) {
    if (count < 3) {
        std::fputs("draw_sample <database> <prefix of the files> [<width>]\n", stderr);
        return 2;
    }
    const std::wstring path = corvane::system::WideFromAnsi(arguments[1]);
    const int width = count > 3 ? std::atoi(arguments[3]) : 480;
    int32_t number = 0;
    for (const corvane::ModelEntry& model : corvane::ListModels(path)) {
        ++number;
        if (model.kind != corvane::ModelKind::kSection) continue;
        if (!corvane::samples::DrawModel(path, number, arguments[2], width)) return 1;
    }
    return 0;
}
