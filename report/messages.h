// The texts of messages: the catalogue in GrVelk.dll, and the arguments that are put into them.
//
// In a text "¤" is the place of the next argument, "²" a line break and "§" a tab; a doubled "²" or
// "§" is the character itself, but in a warning box a doubled "²" is two line breaks. In the
// catalogue's single bytes they are A4, B2 and A7 on every code page; other bytes are its text.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/system.h"
#include "report/message_numbers.h"

namespace corvane {

// Why the system refused something, as an argument of a message: its text is the system's.
struct SystemError {
    system::ErrorNumber number;
};

// An argument of a message, as text: numbers in their general form.
struct MessageArgument {
    std::wstring text;
    system::ErrorNumber error = system::kErrorNone;  // of a SystemError, for the log

    MessageArgument(std::wstring argument) : text(std::move(argument)) {}
    MessageArgument(std::wstring_view argument) : text(argument) {}
    MessageArgument(const wchar_t* argument) : text(argument) {}
    MessageArgument(int32_t number);
    MessageArgument(uint32_t number);
    MessageArgument(float number);
    MessageArgument(double number);
    MessageArgument(SystemError reason);
};
using MessageArguments = std::initializer_list<MessageArgument>;

// The catalogue's text; "Res #" and the number when it has none.
std::wstring GetMessage(int32_t number);
// The same as ANSI bytes, for lines of files that are compared byte by byte.
std::string GetMessageBytes(int32_t number);

// One part of a text that has a "|" between its parts, counted from 0; empty where it has no such
// part.
std::wstring GetMessagePart(int32_t number, size_t index);

// The text with its arguments in their places; those that have no place are appended, a blank
// before each.
std::wstring SubstituteArguments(std::wstring_view text, MessageArguments arguments);
std::wstring FormatMessage(int32_t number, MessageArguments arguments);
std::wstring FormatMessage(std::wstring_view text, MessageArguments arguments);

}  // namespace corvane
