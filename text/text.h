// Texts: trimming, case, and the rules for captions, file names and messages.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

// Without the blanks (only blanks) at both ends.
std::wstring Trim(std::wstring_view text);
std::string_view Trim(std::string_view text);

// Letters of any alphabet in the other case, by the system's rules. Bytes are ANSI text; a letter
// whose other case the code page lacks stays.
std::wstring LowerCase(std::wstring_view text);
std::wstring UpperCase(std::wstring_view text);
std::string UpperCase(std::string_view bytes);
bool EqualsIgnoringCase(std::wstring_view a, std::wstring_view b);
// The text with its first letter, one of A to Z, in the other case.
std::wstring WithCapital(std::wstring text);
std::wstring WithSmallLetter(std::wstring text);

// The text before the first NUL character. Used on every buffer that a system call fills.
std::wstring CutAtNul(std::wstring_view text);

// The text without any character that a file name of the suite may not hold: the blank and
// ~ * ? ^ } { | > < ; , : / \ ¤ ¨ . § ! % µ ç ` @ = + " [ ]
// Drive colon and backslashes go too, so that a folder's path becomes one word.
std::wstring CleanFileName(std::wstring_view text);

// A text longer than `maxLen` becomes its first and last characters with ".." between them;
// unchanged when maxLen leaves no room for that.
std::wstring ShortenText(std::wstring_view text, int16_t maxLen);

// A menu caption as a dialog title: without "&" ("&&" gives one), and cut at "...".
std::wstring MenuCaptionText(std::wstring_view caption);

// Every "²" becomes a carriage return, the line break of message texts.
std::wstring ExpandLineBreaks(std::wstring_view message);
// The lines of a text as fields and the clipboard have them: CR LF for each carriage return.
std::wstring WithLineFeeds(std::wstring_view text);

// The text as a cell in a line of text: a blank instead of each tab, line end and other control
// character.
std::wstring OnOneLine(std::wstring text);

// Between the DOS (OEM) and the Windows (ANSI) character set, cut at the first NUL and trimmed.
std::wstring OemToAnsiText(std::string_view oem);
std::string AnsiToOemText(std::wstring_view text);

}  // namespace corvane
