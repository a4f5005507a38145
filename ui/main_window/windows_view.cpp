#include "ui/main_window/windows_view.h"

#include <string>

#include "shell/state.h"
#include "ui/base/own_window.h"
#include "ui/base/system_services.h"
#include "ui/dialogs/about.h"
#include "ui/dialogs/compare_box.h"
#include "ui/dialogs/export_box.h"
#include "ui/dialogs/folder_prompt.h"
#include "ui/dialogs/import_box.h"
#include "ui/dialogs/input_box.h"
#include "ui/dialogs/page_preview.h"
#include "ui/dialogs/pictures_box.h"
#include "ui/dialogs/progress_box.h"
#include "ui/dialogs/properties_box.h"
#include "ui/dialogs/report_box.h"
#include "ui/dialogs/settings_box.h"
#include "ui/dialogs/splash.h"
#include "ui/dialogs/versions_box.h"
#include "ui/main_window/main_window_view.h"
#include "ui/main_window/running_instance.h"
#include "ui/pictures/picture_output.h"

namespace corvane {
namespace {

// The splash, which is above all windows, would hide the box.
int ShowBox(const std::wstring& text, UINT style) {
    UnloadSplash();
    return MessageBoxW(DialogOwner(), text.c_str(), shell.title.c_str(), style);
}

void ShowWarningBox(const std::wstring& text) {
    ShowBox(text, MB_OK | MB_ICONEXCLAMATION);
}

void ShowPlainBox(const std::wstring& text) {
    ShowBox(text, MB_OK);
}

bool AskYesNo(const std::wstring& text) {
    return ShowBox(text, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

bool AskIrreversible(const std::wstring& text) {
    return ShowBox(text, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

bool AskOkCancel(const std::wstring& text) {
    return ShowBox(text, MB_OKCANCEL | MB_ICONWARNING | MB_DEFBUTTON2) == IDOK;
}

// Repaints, and answers other programs; input stays waiting, so that no command begins inside of
// another one.
void ProcessPendingMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT | PM_QS_SENDMESSAGE)) {
        DispatchMessageW(&message);
    }
}

}  // namespace

View WindowsView() {
    View view;
    view.report.showWarningBox = ShowWarningBox;
    view.report.showPlainBox = ShowPlainBox;
    view.report.processPendingMessages = ProcessPendingMessages;
    view.report.unloadSplash = UnloadSplash;
    view.report.showProgress = ShowProgress;
    view.askYesNo = AskYesNo;
    view.askIrreversible = AskIrreversible;
    view.askOkCancel = AskOkCancel;
    view.askText = AskText;
    view.askExport = AskExport;
    view.askImport = [](ImportChoice& choice) { return AskImport(choice); };
    view.askVersion = AskVersion;
    view.askSettings = AskSettings;
    view.askFolder = AskFolder;
    view.previewPages = PreviewPages;
    view.askPictures = AskPictures;
    view.showProperties = ShowProperties;
    view.showReport = ShowReport;
    view.showComparison = ShowComparison;
    view.openDocument = OpenDocument;
    view.copyText = [](const std::wstring& text, const std::string& html) {
        return CopyText(MainHandle(), text, html);
    };
    view.writeMetafile = WriteMetafile;
    view.writePng = WritePng;
    view.copyPicture = [](const Figure& figure) { return CopyPicture(MainHandle(), figure); };
    view.showAbout = [](const std::wstring& heading) { ShowAbout(heading); };
    view.showSplash = [](const std::wstring& title) { ShowSplash(title); };
    view.handToRunningInstance = HandToRunningInstance;
    view.setRestart = SetRestart;
    FillInMainWindow(view);
    return view;
}

}  // namespace corvane
