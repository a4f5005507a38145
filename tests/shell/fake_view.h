// The one fake of the view: a screen and a user for tests without a window.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "preview/figure.h"
#include "shell/all_pictures.h"
#include "shell/comparison.h"
#include "shell/exchange_boxes.h"
#include "shell/model_list.h"
#include "shell/report.h"
#include "shell/settings_choice.h"
#include "shell/state.h"
#include "shell/status_parts.h"
#include "tests/support/recorded_reports.h"

namespace corvane::test {

// While one of these lives, the process has a fresh state whose view writes what happens into
// RecordedReports::events, such as "rows 3", "lock", "rule 1", "ask text", "main show"; what the
// main window shows is kept in the fields. Afterwards the old state is back.
struct FakeView {
    FakeView();
    ~FakeView();
    FakeView(const FakeView&) = delete;
    FakeView& operator=(const FakeView&) = delete;

    // ---- What the user does --------------------------------------------------------------------

    static bool answerYes;
    static std::wstring answerText;  // given to askText, when the answer is yes
    // In the exchange boxes; at first, cancel.
    static std::function<bool(ExportChoice&)> askExport;
    static std::function<bool(ImportChoice&)> askImport;
    static std::function<bool(VersionChoice&)> askVersion;
    static std::function<bool(SettingsChoice&)> askSettings;
    static std::function<bool(PicturesChoice&)> askPictures;
    static std::function<bool(Report&)> showReport;
    static std::function<void(Comparison&)> showComparison;
    static std::wstring folder;  // given to askFolder; at first empty, which cancels
    static bool previewOn;
    static system::ErrorNumber pictureError;  // of the system when it writes a picture
    // Whether the instance that runs already shows a window.
    static HandOver handOver;

    // ---- What the main window shows; texts are "untouched" at first ----------------------------

    static std::vector<ModelRow> rows;
    static StatusParts parts;
    static int selected;
    static std::vector<int> alsoSelected;  // the other lines that are
    static int rule;
    static bool locked;
    static std::wstring copied;  // on the clipboard
    static std::string copiedHtml;
    static Figure copiedPicture;
    static std::wstring database, position, frame, menu, whyNoPicture, modelCount, whyGone;

private:
    RecordedReports reports;
    ShellState before;
};

}  // namespace corvane::test
