// The message catalogue and the reporters: the one way in which the program tells the user that
// something happened. Every other folder may use this header.
//
// Texts of messages are those of the catalogue in GrVelk.dll. In them "¤" is the place of the next
// argument, "²" a line break and "§" a tab; a doubled "²" or "§" is the character itself, but in a
// warning box a doubled "²" is two line breaks.
//
// A reporter computes; what it does to the screen goes through the procedures of shell/screen.h.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "report/message_numbers.h"

namespace corvane {

// Name of the settings file; the profile functions place it in the Windows folder.
inline constexpr wchar_t kSettingsFile[] = L"Corvane.ini";

// An argument of a message, as text: numbers in their general form.
struct MessageArgument {
    std::wstring text;

    MessageArgument(std::wstring argument) : text(std::move(argument)) {}
    MessageArgument(std::wstring_view argument) : text(argument) {}
    MessageArgument(const wchar_t* argument) : text(argument) {}
    MessageArgument(int32_t number);
    MessageArgument(uint32_t number);
    MessageArgument(float number);
    MessageArgument(double number);
};
using MessageArguments = std::initializer_list<MessageArgument>;

// The catalogue's text; "Res #" and the number when it has none.
std::wstring GetMessage(int32_t number);
// The same as ANSI bytes, for lines of files that are compared byte by byte.
std::string GetMessageBytes(int32_t number);

// The text with its arguments in their places; those that have no place are appended, a blank
// before each.
std::wstring SubstituteArguments(std::wstring_view text, MessageArguments arguments);
std::wstring FormatMessage(int32_t number, MessageArguments arguments);
std::wstring FormatMessage(std::wstring_view text, MessageArguments arguments);

// The standard error report: the status label turns red, the splash goes, and a warning box shows
// the message. A text that reads as a number is taken as one.
void ReportMessage(int32_t number, MessageArguments arguments = {});
void ReportMessage(std::wstring_view text, MessageArguments arguments = {});
// The message in the status label.
void ReportStatus(int32_t number, MessageArguments arguments = {});
// Only turns the status label red, for faults that must not interrupt the user.
void ReportSilent(int32_t number, MessageArguments arguments = {});
void ReportSilent(std::wstring_view text, MessageArguments arguments = {});

// Writes the status label: the text and "...", for an operation in progress; an empty text clears
// it. Nothing changes while status lines are off but the label's colour.
void ShowStatus(std::wstring_view text);
// Turns the status label red; its caption stays, telling where the work stopped.
void FlagStatusFailed(std::wstring_view text);
// The warning box: OK, exclamation icon, the application title.
void ShowWarning(std::wstring_view text);

void StatusLinesOff();
void StatusLinesOn();

// What the utilities report of a run-time error: a plain box "context number description", only in
// debug mode.
void ReportDebugError(std::wstring_view context, uint32_t errorNumber);

// ---- Of the state of the process, what the folders below need ----------------------------------

// Whether the switch "/d" was given.
bool IsDebugMode();
// Whether a program that RunAndWait started is running.
bool IsChildRunning();
void SetChildRunning(bool running);
// The screen's pointer: the hourglass, and the default.
void ShowBusyPointer();
void ShowDefaultPointer();

}  // namespace corvane
