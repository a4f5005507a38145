#include "report/reporters.h"

#include <algorithm>

#include "platform/system.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

std::wstring TextOrMessage(std::wstring_view text) {
    if (!ReadsAsNumber(text)) return std::wstring(text);
    return GetMessage(LeadingInteger(text));
}

bool IsFault(const MessageArgument& argument) {
    return argument.error != system::kErrorNone;
}

// The number of a message and the system's errors among its arguments; the other arguments may be
// what a database holds.
void LogMessage(int32_t number, MessageArguments arguments) {
    std::wstring entry = L"message " + std::to_wstring(number);
    for (const MessageArgument& argument : arguments) {
        if (IsFault(argument)) entry += L", system error " + std::to_wstring(argument.error);
    }
    Log(LogKind::kFault, entry);
}

// A text has no number; it may hold what a database holds.
void LogText(std::wstring_view text, MessageArguments arguments) {
    if (ReadsAsNumber(text)) return LogMessage(LeadingInteger(text), arguments);
    Log(LogKind::kFault, L"a message without a number");
}

void ShowWarningBox(std::wstring_view text) {
    reportView.resetPointer();
    reportView.showWarningBox(ExpandLineBreaks(text));
}

void ReportText(const std::wstring& message, MessageArguments arguments) {
    reportView.resetPointer();
    const std::wstring text = SubstituteArguments(message, arguments);
    reportView.processPendingMessages();
    FlagStatusFailed(text);
    reportView.unloadSplash();
    reportView.showProgress(kNoProgress);
    ShowWarningBox(SubstituteArguments(ExpandLineBreaks(message), arguments));
}

}  // namespace

ReportView reportView;

void ReportMessage(int32_t number, MessageArguments arguments) {
    LogMessage(number, arguments);
    ReportText(GetMessage(number), arguments);
}

void ReportMessage(std::wstring_view text, MessageArguments arguments) {
    LogText(text, arguments);
    ReportText(TextOrMessage(text), arguments);
}

void ReportMessage(int32_t number, MessageArguments arguments, const std::wstring& advice) {
    LogMessage(number, arguments);
    ReportText(L"¤", {WithAdvice(BoxText(number, arguments), advice)});
}

std::wstring BoxText(int32_t number, MessageArguments arguments) {
    return SubstituteArguments(ExpandLineBreaks(GetMessage(number)), arguments);
}

std::wstring WithAdvice(const std::wstring& text, const std::wstring& advice) {
    return text + L"\r\r" + advice;
}

void ReportStatus(int32_t number, MessageArguments arguments) {
    std::wstring text = GetMessage(number);
    if (text.empty()) text = L"Status #" + GeneralText(number);
    ShowStatus(SubstituteArguments(text, arguments));
}

void ReportNote(int32_t number, MessageArguments arguments) {
    if (std::ranges::any_of(arguments, IsFault)) LogMessage(number, arguments);
    ShowNote(FormatMessage(number, arguments));
}

void ReportSilent(int32_t number, MessageArguments arguments) {
    LogMessage(number, arguments);
    FlagStatusFailed(FormatMessage(number, arguments));
}

void ReportSilent(std::wstring_view text, MessageArguments arguments) {
    LogText(text, arguments);
    FlagStatusFailed(SubstituteArguments(TextOrMessage(text), arguments));
}

void ShowStatus(std::wstring_view text) {
    ShowNote(text.empty() ? std::wstring() : std::wstring(text) + L"...");
}

void ShowNote(std::wstring_view text) {
    reportView.setStatusColour(StatusColour::kButtonText);
    if (LeadingInteger(reportView.statusTag()) != -1) return;
    if (reportView.statusCaption() == text) return;
    reportView.setStatusCaption(std::wstring(text));
    reportView.processPendingMessages();
}

void FlagStatusFailed(std::wstring_view text) {
    if (reportView.statusCaption() == std::wstring(text) + L"...") return;
    reportView.setStatusColour(StatusColour::kRed);
}

void ShowWarning(std::wstring_view text) {
    LogText(text, {});
    ShowWarningBox(text);
}

void StatusLinesOff() {
    reportView.setStatusTag(L"0");
}

void StatusLinesOn() {
    reportView.setStatusTag(L"-1");
}

void ReportDebugError(std::wstring_view context, uint32_t errorNumber) {
    Log(LogKind::kFault, std::wstring(context) + L", system error " + std::to_wstring(errorNumber));
    if (!reportView.isDebugMode()) return;
    reportView.showPlainBox(std::wstring(context) + L' ' + std::to_wstring(errorNumber) + L' ' +
                            system::ErrorText(errorNumber));
}

void Log(LogKind kind, std::wstring_view text) {
    reportView.writeLog(kind, text);
}

void SetBusyPointer() {
    reportView.setBusyPointer();
}

void ResetMousePointer() {
    reportView.resetPointer();
}

}  // namespace corvane
