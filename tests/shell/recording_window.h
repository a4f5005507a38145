// A main window for tests without one, and databases to show in it.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "shell/exchange_boxes.h"
#include "shell/state.h"
#include "shell/window_contents.h"
#include "tests/support/support.h"

namespace corvane::test {

// The part of the catalogue that the main window needs.
inline std::map<int32_t, std::string> MainWindowTexts() {
    return {{kMsgPosition, "X = \xA4 m"},
            {kMsgReadingModels, "Reading \xA4"},
            {kMsgFrameDistanceFormat, "#0.000"},
            {kMsgInputBsdFirst, "BSD first"},
            {kMsgNotImplemented, "not implemented"},
            {kMsgCommentRule, "*"},
            {kMsgModelMarker, "== MODEL =="},
            {kMsgFormatVersionLabel, "VERSION"},
            {kMsgNameLabel, "NAME"},
            {kMsgSignature, "DATABASE"},
            {kMsgFileHeadLabel, "HEAD"}};
}

// A window that writes down what it is told, over the events of the recording screen.
struct RecordingWindow {
    FakeCatalogue catalogue{MainWindowTexts()};
    RecordingScreen screen;
    TemporaryFolder folder;

    inline static std::vector<ModelRow> rows;
    inline static int selected;
    inline static int rule;
    inline static bool previewOn;
    inline static std::wstring database, position, frame, menu;

    // What the user does in the exchange boxes; at first, cancel.
    inline static std::function<bool(ExportChoice&)> askExport;
    inline static std::function<bool(ImportChoice&)> askImport;

    static void Note(std::string event) { RecordingScreen::events.push_back(std::move(event)); }

    RecordingWindow() {
        rows.clear();
        selected = -1;
        rule = 0;
        askExport = [](ExportChoice&) { return false; };
        askImport = [](ImportChoice&) { return false; };
        previewOn = false;
        database = position = frame = menu = L"untouched";
        static constexpr MainWindow window{
            .setDatabaseText = [](const std::wstring& text) { database = text; },
            .setRows =
                [](const std::vector<ModelRow>& all) {
                    rows = all;
                    Note("rows");
                },
            .selectRow = [](int index) { selected = index; },
            .selectedRow = [] { return selected; },
            .isPreviewOn = [] { return previewOn; },
            .redrawPreview = [] { Note("redraw preview"); },
            .clearPreview = [] { Note("clear preview"); },
            .setPositionText = [](const std::wstring& text) { position = text; },
            .setFrameText = [](const std::wstring& text) { frame = text; },
            .setSectionMenuCaption = [](const std::wstring& text) { menu = text; },
            .selectedRule = [] { return rule; },
            .selectRule = [](int index) { rule = index; },
            .showModelButtons = [](ModelKind kind) { Note("buttons " + Narrow(KindName(kind))); },
            .redrawRuleButton = [] { Note("redraw rule button"); },
            .setLocked = [](bool locked) { Note(locked ? "lock" : "unlock"); },
            .updateEnabling = [] { Note("enabling"); },
            .focusList = [] { Note("focus list"); },
            .askExport = [](ExportChoice& choice) { return askExport(choice); },
            .askImport = [](ImportChoice& choice) { return askImport(choice); },
            .close = [] { Note("close"); },
        };
        shell.mainWindow = &window;
    }

    // Makes a database the open one.
    void Open(const std::string& bytes) {
        shell.settings.DatabasePath = folder.File(L"ship.ve2");
        WriteFileBytes(shell.settings.DatabasePath, bytes);
    }
};

// A model: its keyword, name and the row that holds its position.
inline std::string Block(int number, const std::string& keyword, const std::string& name,
                         const std::string& positionRow) {
    return "== MODEL ==\r\n*\r\n " + std::to_string(number) + " \r\n" + keyword +
           "\r\n*\r\nVERSION\r\n 2.002 \r\n*\r\nNAME\r\n" + name + "\r\n" + positionRow + "\r\n";
}

// Sections at x = 10 m, 20 m and so on.
inline std::string Database(int sections) {
    std::string bytes = "DATABASE\r\n";
    for (int i = 1; i <= sections; ++i) {
        bytes += Block(i, "SECTION", "Frame " + std::to_string(i), std::to_string(i * 10));
    }
    return bytes;
}

inline void DefineBsd() {
    for (const int item : {1, 2, 3, 9}) shell.bsd.MainData(item) = 10;
}

inline bool Happened(const std::string& event) {
    const std::vector<std::string>& events = RecordingScreen::events;
    return std::find(events.begin(), events.end(), event) != events.end();
}

}  // namespace corvane::test
