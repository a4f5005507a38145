#include "report/messages.h"

#include <algorithm>
#include <array>

#include "platform/grvelk.h"
#include "platform/system.h"
#include "shell/state.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

// Size of the buffer that the library fills; no message of the catalogue is longer.
constexpr int32_t kCatalogueBufferSize = 3000;

std::wstring TextOrMessage(std::wstring_view text) {
    if (!ReadsAsNumber(text)) return std::wstring(text);
    return GetMessage(LeadingInteger(text));
}

void ReportText(const std::wstring& message, MessageArguments arguments) {
    shell.screen.resetPointer();
    const std::wstring text = SubstituteArguments(message, arguments);
    shell.screen.processPendingMessages();
    FlagStatusFailed(text);
    shell.screen.unloadSplash();
    // In a box every "²" is a line break, so a doubled one leaves a line empty.
    ShowWarning(SubstituteArguments(ExpandLineBreaks(message), arguments));
}

}  // namespace

MessageArgument::MessageArgument(int32_t number) : text(GeneralText(number)) {}
MessageArgument::MessageArgument(uint32_t number) : text(std::to_wstring(number)) {}
MessageArgument::MessageArgument(float number) : text(GeneralText(number)) {}
MessageArgument::MessageArgument(double number) : text(GeneralText(number)) {}

std::string GetMessageBytes(int32_t number) {
    std::array<char, kCatalogueBufferSize> buffer;
    const int32_t length = ZTGrVel32_LoadVelkinString(number, buffer.data(), kCatalogueBufferSize);
    if (length <= 0) return "Res #" + std::to_string(number);
    return std::string(buffer.data(), static_cast<size_t>(std::min(length, kCatalogueBufferSize)));
}

std::wstring GetMessage(int32_t number) {
    return system::WideFromAnsi(GetMessageBytes(number));
}

std::wstring SubstituteArguments(std::wstring_view text, MessageArguments arguments) {
    std::wstring result;
    const MessageArgument* argument = arguments.begin();
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t character = text[i];
        if (character == L'²' || character == L'§') {
            if (i + 1 < text.size() && text[i + 1] == character) {
                result += character;
                ++i;
            } else {
                result += character == L'²' ? L'\r' : L'\t';
            }
        } else if (character == L'¤' && argument != arguments.end()) {
            result += argument->text;
            ++argument;
        } else {
            result += character;
        }
    }
    for (; argument != arguments.end(); ++argument) result += L' ' + argument->text;
    return result;
}

std::wstring FormatMessage(int32_t number, MessageArguments arguments) {
    return SubstituteArguments(GetMessage(number), arguments);
}

std::wstring FormatMessage(std::wstring_view text, MessageArguments arguments) {
    return SubstituteArguments(text, arguments);
}

void ReportMessage(int32_t number, MessageArguments arguments) {
    ReportText(GetMessage(number), arguments);
}

void ReportMessage(std::wstring_view text, MessageArguments arguments) {
    ReportText(TextOrMessage(text), arguments);
}

void ReportStatus(int32_t number, MessageArguments arguments) {
    std::wstring text = GetMessage(number);
    if (text.empty()) text = L"Status #" + GeneralText(number);
    ShowStatus(SubstituteArguments(text, arguments));
}

void ReportSilent(int32_t number, MessageArguments arguments) {
    FlagStatusFailed(FormatMessage(number, arguments));
}

void ReportSilent(std::wstring_view text, MessageArguments arguments) {
    FlagStatusFailed(SubstituteArguments(TextOrMessage(text), arguments));
}

void ShowStatus(std::wstring_view text) {
    shell.screen.setStatusColour(StatusColour::kButtonText);
    if (LeadingInteger(shell.screen.statusTag()) != -1) return;
    const std::wstring shown = text.empty() ? std::wstring() : std::wstring(text) + L"...";
    if (shell.screen.statusCaption() == shown) return;
    shell.screen.setStatusCaption(shown);
    shell.screen.processPendingMessages();
}

void FlagStatusFailed(std::wstring_view text) {
    if (shell.screen.statusCaption() == std::wstring(text) + L"...") return;
    shell.screen.setStatusColour(StatusColour::kRed);
}

void ShowWarning(std::wstring_view text) {
    shell.screen.resetPointer();
    shell.screen.showWarningBox(ExpandLineBreaks(text));
}

void StatusLinesOff() {
    shell.screen.setStatusTag(L"0");
}
void StatusLinesOn() {
    shell.screen.setStatusTag(L"-1");
}

void ReportDebugError(std::wstring_view context, uint32_t errorNumber) {
    if (!IsDebugMode()) return;
    shell.screen.showPlainBox(std::wstring(context) + L' ' + std::to_wstring(errorNumber) + L' ' +
                              system::ErrorText(errorNumber));
}

bool IsDebugMode() {
    return shell.debugMode;
}

void ShowBusyPointer() {
    shell.screen.setBusyPointer();
}
void ShowDefaultPointer() {
    shell.screen.resetPointer();
}
bool IsChildRunning() {
    return shell.childRunning;
}
void SetChildRunning(bool running) {
    shell.childRunning = running;
}

}  // namespace corvane
