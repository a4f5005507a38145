#include "tests/shell/fake_view.h"

#include <algorithm>
#include <utility>

#include "shell/report_details.h"
#include "tests/support/support.h"

namespace corvane::test {
namespace {

constexpr auto kRecord = RecordedReports::Record;

bool Answer(const char* question, const std::wstring& text) {
    kRecord(question + Narrow(text));
    return FakeView::answerYes;
}

void AskQuestions(View& view) {
    view.askYesNo = [](const std::wstring& text) { return Answer("ask ", text); };
    view.askIrreversible = [](const std::wstring& text) {
        return Answer("ask irreversible ", text);
    };
    view.askOkCancel = [](const std::wstring& text) { return Answer("ask ok ", text); };
    view.askText = [](const std::wstring& caption, const std::wstring& text, std::wstring& answer) {
        kRecord("ask text " + Narrow(caption) + ": " + Narrow(text) + " [" + Narrow(answer) + "]");
        if (FakeView::answerYes) answer = FakeView::answerText;
        return FakeView::answerYes;
    };
    view.askExport = [](ExportChoice& choice) { return FakeView::askExport(choice); };
    view.askImport = [](ImportChoice& choice) { return FakeView::askImport(choice); };
    view.askVersion = [](VersionChoice& choice) { return FakeView::askVersion(choice); };
    view.askSettings = [](SettingsChoice& choice) { return FakeView::askSettings(choice); };
    view.askPictures = [](PicturesChoice& choice) { return FakeView::askPictures(choice); };
    view.showReport = [](Report& report) { return FakeView::showReport(report); };
    view.showComparison = [](Comparison& comparison) { FakeView::showComparison(comparison); };
    view.askFolder = [](const std::wstring& title, std::wstring& chosen) {
        kRecord("ask folder " + Narrow(title) + " [" + Narrow(chosen) + "]");
        if (!FakeView::folder.empty()) chosen = FakeView::folder;
        return !FakeView::folder.empty();
    };
}

// A picture that the system would draw: a file that names its kind.
system::ErrorNumber WriteFake(const char* kind, const Figure& figure, const std::wstring& path) {
    if (FakeView::pictureError == system::kErrorNone) {
        WriteFileBytes(path, std::string(kind) + ' ' + std::to_string(figure.items.size()));
    }
    return FakeView::pictureError;
}

void ShowWindows(View& view) {
    view.showProperties = [](const std::wstring& caption, const std::wstring& text) {
        kRecord("properties " + Narrow(caption) + ": " + Narrow(text));
    };
    view.openDocument = [](const std::wstring& path) {
        kRecord("open " + Narrow(path));
        return system::kErrorNone;
    };
    view.copyText = [](const std::wstring& text, const std::string& html) {
        FakeView::copied = text;
        FakeView::copiedHtml = html;
        return true;
    };
    view.writeMetafile = [](const Figure& figure, const std::wstring& path) {
        return WriteFake("metafile", figure, path);
    };
    view.writePng = [](const Figure& figure, const std::wstring& path) {
        return WriteFake("png", figure, path);
    };
    view.copyPicture = [](const Figure& figure) {
        FakeView::copiedPicture = figure;
        return true;
    };
    view.noteScreen = [](Screen& screen) { screen = {1920, 1200, 144}; };
    view.showAbout = [](const std::wstring& text) { kRecord("about " + Narrow(text)); };
    view.loadMainWindow = [] { kRecord("main load"); };
    view.showMainWindow = [] { kRecord("main show"); };
    view.closeMainWindow = [] { kRecord("close"); };
    view.setMainCaption = [](const std::wstring& text) { kRecord("title " + Narrow(text)); };
    view.showSplash = [](const std::wstring& text) { kRecord("splash show " + Narrow(text)); };
    view.addToSystemsRecent = [](const std::wstring& path) { kRecord("recent " + Narrow(path)); };
    view.handToRunningInstance = [](const StartRequest& request) {
        kRecord("hand over " + Narrow(request.file) + (request.check ? " to check" : "") +
                " from " + Narrow(shell.title));
        return FakeView::handOver;
    };
}

void ShowContents(View& view) {
    view.setDatabaseText = [](const std::wstring& text) { FakeView::database = text; };
    view.setLines = [](int count) {
        FakeView::rows.clear();
        for (int line = 0; line < count; ++line) FakeView::rows.push_back(RowOfLine(line));
        FakeView::selected = -1;
        FakeView::alsoSelected.clear();
        kRecord("rows " + std::to_string(count));
    };
    view.setModelCount = [](const std::wstring& text) { FakeView::modelCount = text; };
    view.showStatusParts = [](const StatusParts& parts) { FakeView::parts = parts; };
    view.showWhyGone = [](const std::wstring& why) { FakeView::whyGone = why; };
    view.selectLine = [](int line) { FakeView::selected = line; };
    view.selectedLine = [] { return FakeView::selected; };
    view.selectedLines = [] {
        std::vector<int> lines = FakeView::alsoSelected;
        if (FakeView::selected >= 0) lines.push_back(FakeView::selected);
        std::ranges::sort(lines);
        return lines;
    };
    view.selectedCount = [] {
        return static_cast<int>(FakeView::alsoSelected.size()) + (FakeView::selected >= 0 ? 1 : 0);
    };
    view.selectAllLines = [] { kRecord("select all"); };
    view.focusList = [] { kRecord("focus list"); };
    view.focusFilter = [] { kRecord("focus filter"); };
    view.focusPane = [](bool forward) { kRecord(forward ? "next pane" : "previous pane"); };
    view.isPreviewOn = [] { return FakeView::previewOn; };
    view.redrawPreview = [] { kRecord("redraw preview"); };
    view.clearPreview = [](const std::wstring& why) {
        kRecord("clear preview");
        FakeView::whyNoPicture = why;
    };
    view.setPositionText = [](const std::wstring& text) { FakeView::position = text; };
    view.setFrameText = [](const std::wstring& text) { FakeView::frame = text; };
    view.setSectionMenuCaption = [](const std::wstring& text) { FakeView::menu = text; };
    view.selectedRule = [] { return FakeView::rule; };
    view.selectRule = [](int index) {
        FakeView::rule = index;
        kRecord("rule " + std::to_string(index));
    };
    view.showModelButtons = [](ModelKind kind) { kRecord("buttons " + Narrow(KindName(kind))); };
    view.redrawRuleButton = [] { kRecord("redraw rule button"); };
    view.setLocked = [](bool wanted) {
        FakeView::locked = wanted;
        kRecord(wanted ? "lock" : "unlock");
    };
    view.updateEnabling = [] { kRecord("enabling"); };
}

}  // namespace

bool FakeView::answerYes;
std::wstring FakeView::answerText;
std::function<bool(ExportChoice&)> FakeView::askExport;
std::function<bool(ImportChoice&)> FakeView::askImport;
std::function<bool(VersionChoice&)> FakeView::askVersion;
std::function<bool(SettingsChoice&)> FakeView::askSettings;
std::function<bool(PicturesChoice&)> FakeView::askPictures;
std::function<bool(Report&)> FakeView::showReport;
std::function<void(Comparison&)> FakeView::showComparison;
std::wstring FakeView::folder;
StatusParts FakeView::parts;
bool FakeView::previewOn;
HandOver FakeView::handOver;
std::vector<ModelRow> FakeView::rows;
int FakeView::selected;
std::vector<int> FakeView::alsoSelected;
int FakeView::rule;
bool FakeView::locked;
std::wstring FakeView::copied;
std::string FakeView::copiedHtml;
Figure FakeView::copiedPicture;
system::ErrorNumber FakeView::pictureError;
std::wstring FakeView::database, FakeView::position, FakeView::frame, FakeView::menu,
    FakeView::whyNoPicture, FakeView::modelCount, FakeView::whyGone;

FakeView::FakeView() : before(std::exchange(shell, ShellState())) {
    answerYes = previewOn = locked = false;
    handOver = HandOver::kDone;
    answerText.clear();
    askExport = [](ExportChoice&) { return false; };
    askImport = [](ImportChoice&) { return false; };
    askVersion = [](VersionChoice&) { return false; };
    askSettings = [](SettingsChoice&) { return false; };
    askPictures = [](PicturesChoice&) { return false; };
    showReport = [](Report&) { return false; };
    showComparison = [](Comparison&) {};
    folder.clear();
    copied.clear();
    copiedHtml.clear();
    copiedPicture = {};
    pictureError = system::kErrorNone;
    rows.clear();
    parts = StatusParts();
    selected = -1;
    alsoSelected.clear();
    rule = 0;
    database = position = frame = menu = whyNoPicture = modelCount = whyGone = L"untouched";
    View view;
    view.report = RecordedReports::View();
    AskQuestions(view);
    ShowWindows(view);
    ShowContents(view);
    UseView(view);
}

FakeView::~FakeView() {
    shell = before;
}

}  // namespace corvane::test
