#include "report/messages.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/grvelk.h"
#include "platform/system.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

// Size of the buffer that the library fills; no message of the catalogue is longer.
constexpr int32_t kCatalogueBufferSize = 3000;

// The marks of the notation are these bytes on every code page, also on one that has letters there.
struct Mark {
    char byte;
    wchar_t character;
};
constexpr Mark kMarks[] = {{'\xA4', L'¤'}, {'\xA7', L'§'}, {'\xB2', L'²'}};

}  // namespace

MessageArgument::MessageArgument(int32_t number) : text(GeneralText(number)) {}
MessageArgument::MessageArgument(uint32_t number) : text(std::to_wstring(number)) {}
MessageArgument::MessageArgument(float number) : text(GeneralText(number)) {}
MessageArgument::MessageArgument(double number) : text(GeneralText(number)) {}
MessageArgument::MessageArgument(SystemError reason)
    : text(system::ErrorText(reason.number)), error(reason.number) {}

std::wstring GetMessagePart(int32_t number, size_t index) {
    const std::wstring text = GetMessage(number);
    std::wstring_view rest = text;
    for (; index > 0; --index) {
        const size_t bar = rest.find(L'|');
        if (bar == std::wstring_view::npos) return {};
        rest.remove_prefix(bar + 1);
    }
    return std::wstring(rest.substr(0, rest.find(L'|')));
}

std::string GetMessageBytes(int32_t number) {
    std::array<char, kCatalogueBufferSize> buffer;
    const int32_t length = ZTGrVel32_LoadVelkinString(number, buffer.data(), kCatalogueBufferSize);
    if (length <= 0) return "Res #" + std::to_string(number);
    return std::string(buffer.data(), static_cast<size_t>(std::min(length, kCatalogueBufferSize)));
}

std::wstring GetMessage(int32_t number) {
    const std::string bytes = GetMessageBytes(number);
    std::wstring text = system::WideFromAnsi(bytes);
    for (size_t i = 0; i < bytes.size(); ++i) {
        const auto mark = std::ranges::find(kMarks, bytes[i], &Mark::byte);
        if (mark != std::end(kMarks)) text[i] = mark->character;
    }
    return text;
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

}  // namespace corvane
