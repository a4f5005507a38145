// Small databases with the texts that they and the main window need, shown in the fake window.
#pragma once

#include <map>
#include <string>

#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane::test {

// The part of the catalogue that the main window needs.
inline std::map<int32_t, std::string> MainWindowTexts() {
    return {{kMsgPosition, "X = \xA4 m"},
            {kMsgReadingModels, "Reading \xA4"},
            {kMsgFrameDistanceFormat, "#0.000"},
            {kMsgAftOfFrame, ", aft of it"},
            {kMsgForwardOfFrame, ", forward of it"},
            {kMsgInputBsdFirst, "BSD first"},
            {kMsgNotImplemented, "not implemented"},
            {kMsgCommentRule, "*"},
            {kMsgModelMarker, "== MODEL =="},
            {kMsgFormatVersionLabel, "VERSION"},
            {kMsgNameLabel, "NAME"},
            {kMsgSignature, "DATABASE"},
            {kMsgFileHeadLabel, "HEAD"},
            {kMsgSomeModels, "\xA4 of \xA4 models"},
            {kMsgAllModels, "\xA4 models"},
            {kMsgOneModel, "1 model"}};
}

// A main window with its texts, and a database to show in it.
struct ShownDatabase {
    FakeCatalogue catalogue{MainWindowTexts()};
    FakeView view;
    TemporaryFolder folder;

    // Makes a database the open one.
    void Open(const std::string& bytes) {
        shell.database.path = folder.File(L"ship.ve2");
        WriteFileBytes(shell.database.path, bytes);
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
    for (const int item : {1, 2, 3, 9}) shell.database.bsd.MainData(item) = 10;
}

}  // namespace corvane::test
