// What only a screen can do. The user interface fills the record in at start; tests fill it with a
// recorder. A procedure that nobody filled in does nothing and answers no.
#pragma once

#include <cstdint>
#include <string>

namespace corvane {

enum class StatusColour { kButtonText, kRed };

struct Screen {
    // The status label PAN_Help.
    std::wstring (*statusCaption)() = [] { return std::wstring(); };
    void (*setStatusCaption)(const std::wstring& text) = [](const std::wstring&) {};
    void (*setStatusColour)(StatusColour colour) = [](StatusColour) {};
    // Its Tag: "-1" while status lines are shown.
    std::wstring (*statusTag)() = [] { return std::wstring(L"-1"); };
    void (*setStatusTag)(const std::wstring& tag) = [](const std::wstring&) {};

    // Modal boxes; the title is the application's. They return when the user has closed them.
    void (*showWarningBox)(const std::wstring& text) = [](const std::wstring&) {};
    void (*showPlainBox)(const std::wstring& text) = [](const std::wstring&) {};
    bool (*askYesNo)(const std::wstring& text) = [](const std::wstring&) { return false; };
    // For what can't be undone: No is the button that Enter presses.
    bool (*askIrreversible)(const std::wstring& text) = [](const std::wstring&) { return false; };
    bool (*askOkCancel)(const std::wstring& text) = [](const std::wstring&) { return false; };
    // An input box: `answer` is proposed, and becomes what the user typed. False when the user
    // cancelled.
    bool (*askText)(const std::wstring& question, std::wstring& answer) =
        [](const std::wstring&, std::wstring&) { return false; };
    // The box FM_About; `heading` is its version line.
    void (*showAbout)(const std::wstring& heading) = [](const std::wstring&) {};

    void (*setBusyPointer)() = [] {};
    void (*resetPointer)() = [] {};
    // Handles the window messages that wait, once.
    void (*processPendingMessages)() = [] {};

    // The main window FM_Main: made without being shown, shown, its caption, its contents.
    void (*loadMainWindow)() = [] {};
    void (*showMainWindow)() = [] {};
    void (*setMainCaption)(const std::wstring& caption) = [](const std::wstring&) {};
    void (*refreshMainWindow)() = [] {};
    // The splash window FM_Load: shown on top of all windows; unloading one that isn't loaded does
    // nothing.
    void (*showSplash)(const std::wstring& title) = [](const std::wstring&) {};
    void (*unloadSplash)() = [] {};

    // Brings the window of the running instance to the front: the first visible top-level window
    // whose title is `title`, else the first whose title begins with it.
    void (*activateRunningInstance)(const std::wstring& title) = [](const std::wstring&) {};
    // Converts a legacy database and opens the result.
    void (*openLegacyDatabase)(const std::wstring& path) = [](const std::wstring&) {};
};

}  // namespace corvane
