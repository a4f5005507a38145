// The reporters: the one way in which the program says that something happened. Every folder above
// uses them where a fault happens, and returns the neutral result to its caller.
//
// A reporter finds the text and fills in its arguments (report/messages.h); what it does to the
// screen goes through the procedures of ReportView.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "report/messages.h"

namespace corvane {

// That no operation shows how far it is.
inline constexpr int kNoProgress = -1;

enum class StatusColour { kButtonText, kRed };

// What an entry of the log is about.
enum class LogKind { kStart, kCommand, kOpen, kWrite, kRun, kFault, kEnd };

// What the screen does for the reporters. Whoever has a screen fills the record in at start; a
// procedure that nobody filled in does nothing.
struct ReportView {
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

    void (*setBusyPointer)() = [] {};
    void (*resetPointer)() = [] {};
    // Handles the window messages that wait, once.
    void (*processPendingMessages)() = [] {};
    // How far an operation that takes long is, in per cent, and whether the user cancels it;
    // kNoProgress: it has ended, or a box comes before it goes on.
    bool (*showProgress)(int percent) = [](int) { return false; };
    // Takes the splash window away, which would hide a box; harmless without one.
    void (*unloadSplash)() = [] {};

    // Whether the switch "/d" was given.
    bool (*isDebugMode)() = [] { return false; };

    // Writes an entry into the log (files/log_file.h).
    void (*writeLog)(LogKind kind, std::wstring_view text) = [](LogKind, std::wstring_view) {};
};

// The record that the reporters use.
extern ReportView reportView;

// The standard error report: the status label turns red, the splash goes, and a warning box shows
// the message. A text that reads as a number is the number of a message.
void ReportMessage(int32_t number, MessageArguments arguments = {});
void ReportMessage(std::wstring_view text, MessageArguments arguments = {});
// The same with advice of ours below the message, after an empty line.
void ReportMessage(int32_t number, MessageArguments arguments, const std::wstring& advice);
// A message as boxes show it: a question, or advice. In a box a doubled "²" leaves a line empty.
std::wstring BoxText(int32_t number, MessageArguments arguments = {});
// A text of a box with advice below it.
std::wstring WithAdvice(const std::wstring& text, const std::wstring& advice);

// The message in the status label.
void ReportStatus(int32_t number, MessageArguments arguments = {});
// The message in the status label as it is: what has ended well, or what to do next.
void ReportNote(int32_t number, MessageArguments arguments = {});
// Only turns the status label red, for faults that must not interrupt the user.
void ReportSilent(int32_t number, MessageArguments arguments = {});
void ReportSilent(std::wstring_view text, MessageArguments arguments = {});

// Writes the status label: the text and "...", for an operation in progress; an empty text clears
// it. While status lines are off only the label's colour changes.
void ShowStatus(std::wstring_view text);
// The same without "...": for what has ended, or lasts.
void ShowNote(std::wstring_view text);
// Turns the status label red; its caption stays and shows where the work stopped.
void FlagStatusFailed(std::wstring_view text);
// The warning box: OK, exclamation icon, the application title.
void ShowWarning(std::wstring_view text);

void StatusLinesOff();
void StatusLinesOn();
// Off while it lives.
struct QuietStatus {
    QuietStatus() { StatusLinesOff(); }
    ~QuietStatus() { StatusLinesOn(); }
    QuietStatus(const QuietStatus&) = delete;
    QuietStatus& operator=(const QuietStatus&) = delete;
};

// No warning boxes while it lives: the caller says itself what could not be done.
struct NoWarningBoxes {
    NoWarningBoxes() : shown(reportView.showWarningBox) {
        reportView.showWarningBox = [](const std::wstring&) {};
    }
    ~NoWarningBoxes() { reportView.showWarningBox = shown; }
    NoWarningBoxes(const NoWarningBoxes&) = delete;
    NoWarningBoxes& operator=(const NoWarningBoxes&) = delete;

private:
    void (*shown)(const std::wstring& text);
};

// What the utilities report of a run-time error: a plain box "context number description", only in
// debug mode.
void ReportDebugError(std::wstring_view context, uint32_t errorNumber);

// Writes an entry into the log: names of commands, paths of files, numbers of messages. Never the
// name of a model, and nothing else of what a database holds. The reporters write what they report.
void Log(LogKind kind, std::wstring_view text);

// The screen's pointer: the hourglass, and back to the default.
void SetBusyPointer();
void ResetMousePointer();

}  // namespace corvane
