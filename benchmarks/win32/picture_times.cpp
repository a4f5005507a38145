// picture_times PATH: draws sections in the picture of the preview, as zooming and moving by mouse
// and keys do, and prints the milliseconds of a frame until it has been painted, by the clock: of
// the section with the most nodes in the database, and of one of 30,000 nodes; without and with all
// that can be switched on over them. Each is the median of 100 frames, the slowest but five, and
// the mean of the processor's time.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "benchmarks/win32/times.h"
#include "bsd/basic_ship_data.h"
#include "database/listing.h"
#include "database/section_block.h"
#include "platform/system.h"
#include "shell/preview_pane.h"
#include "shell/state.h"
#include "ui/base/own_window.h"
#include "ui/main_window/windows_view.h"
#include "ui/pictures/section_picture.h"

namespace corvane {
namespace {

size_t NodeCount(const SectionModel& section) {
    size_t count = 0;
    for (const Panel& panel : section.panels) count += panel.nodes.size();
    return count;
}

SectionModel RichestSection(const std::wstring& path) {
    SectionModel richest;
    for (const ModelEntry& model : ListModelsWithPositions(path)) {
        SectionModel section;
        if (model.kind == ModelKind::kSection &&
            ReadSectionBlock(path, PlaceOf(model), false, section) &&
            NodeCount(section) > NodeCount(richest)) {
            richest = section;
        }
    }
    return richest;
}

// Decks of 300 nodes each, with a stiffener between every two of them.
SectionModel ManyNodes(const BasicShipData& bsd) {
    constexpr int kDecks = 100;
    constexpr int kNodes = 300;
    SectionModel section;
    section.symmetryMode = 1;
    for (int deck = 0; deck < kDecks; ++deck) {
        Panel& panel = section.panels.emplace_back();
        panel.name = L"Deck " + std::to_wstring(deck + 1);
        panel.thickness_mm = static_cast<float>(10 + deck % 8);
        const float z = bsd.MainData(3) * static_cast<float>(deck) / kDecks;
        for (int i = 0; i < kNodes; ++i) {
            Node& node = panel.nodes.emplace_back();
            node.kind = kNodeGiven;
            node.givenY = bsd.MainData(2) / 2 * static_cast<float>(i) / kNodes;
            node.givenZ = z + static_cast<float>(i % 2) * 0.01F;
        }
    }
    return section;
}

void MeasureFrames(HWND picture, const char* what) {
    constexpr int kFrames = 100;
    std::vector<double> times;
    RedrawSectionPicture(picture);
    const double before = ProcessorMilliseconds();
    for (int i = 0; i < kFrames; ++i) {
        times.push_back(MeasureOnce([&] {
                            ZoomSectionPicture(picture, i % 20 < 10);
                            GdiFlush();
                        }).clock);
    }
    const double processor = (ProcessorMilliseconds() - before) / kFrames;
    std::ranges::sort(times);
    std::printf("%-32s %8.1f %8.1f %9.1f\n", what, times[kFrames / 2], times[kFrames - 6],
                processor);
}

void MeasureSection(HWND picture, const SectionModel& section) {
    shell.preview.section = section;
    shell.preview.isShown = true;
    std::printf("%zu nodes\n", NodeCount(section));
    shell.preview.options = {};
    MeasureFrames(picture, "the section alone");
    shell.preview.options = {true, true, true, true, true, true};
    MeasureFrames(picture, "with all that can be switched on");
}

int MeasurePictures(const std::wstring& path) {
    UseView(WindowsView());
    LoadDatabase(path);
    if (!IsBsdDefined(shell.database.bsd)) return 1;
    const HWND window = CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0,
                                        1000, 700, nullptr, nullptr, nullptr, nullptr);
    PictureContents contents;
    contents.draw = DrawPreview;
    contents.pane = &shell.preview;
    const HWND picture = CreateSectionPicture(window, contents);
    SetWindowPos(picture, nullptr, 0, 0, 1000, 700, SWP_NOZORDER | SWP_NOACTIVATE);
    std::printf("%-32s %8s %8s %9s\n", "frame, ms", "median", "slow", "processor");
    MeasureSection(picture, RichestSection(path));
    MeasureSection(picture, ManyNodes(shell.database.bsd));
    DestroyWindow(window);
    return 0;
}

}  // namespace
}  // namespace corvane

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("picture_times PATH\n", stderr);
        return 2;
    }
    return corvane::MeasurePictures(corvane::system::WideFromAnsi(arguments[1]));
}
