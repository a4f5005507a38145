// ztutil32.dll: the suite's utility library: regional settings, number rows, identifiers, running
// a program, the file prompt, plane geometry tests.
//
// Texts are NUL-terminated single-byte ANSI. A boolean is a 16-bit integer: -1 true, 0 false; the
// shell treats any non-zero value as true.
#pragma once

#include "platform/companion.h"

namespace corvane {

// A result of ShellAndWait.
inline constexpr int16_t kProgramCrashed = -2;

}  // namespace corvane

extern "C" {

// Version of the library; the shell asks for 3.73 or more.
float CORVANE_STDCALL GetZTUtilVersion();

// Whether the user's decimal symbol is "." and no digit grouping symbol can be mistaken for it.
int16_t CORVANE_STDCALL IsRegionalOK();

// Changes the user's regional settings so that IsRegionalOK holds; false when they cannot be.
int16_t CORVANE_STDCALL SetRegionalOK();

// Reads the numbers of `line` into `values`, at most `most`, and returns how many. Numbers are
// separated by blanks, tabs, commas or semicolons; "." is the decimal point; the exponent letter
// is E or D; a word that is not a number is skipped; what follows number `most` is ignored.
int32_t CORVANE_STDCALL GetValsC(const char* line, double* values, int32_t most);

// Puts a new text, different at each call on any machine, into `buffer` (`size` bytes).
void CORVANE_STDCALL GenerateID(char* buffer, int32_t size);

// Puts the name of the logged-in user into `buffer`, an empty text when it is not known.
void CORVANE_STDCALL LoginName(char* buffer, int32_t size);

// Starts `commandLine` and returns when the started program has ended. The program file is the
// longest beginning that ends in ".exe" before a blank or the end and that is a file, so neither a
// folder with blanks in its name nor one named "v1.exe files" needs quotes. `windowStyle` is a
// show-window code, 0 no preference. While it waits the calling thread's windows go on painting,
// but accept no input. False: nothing was started, and the system's last error says why.
// kProgramCrashed: it was started, and an exception that nobody handled ended it (exit codes
// 0xC0000000 to 0xCFFFFFFF, and 0xE06D7363).
int16_t CORVANE_STDCALL ShellAndWait(const char* commandLine, int16_t windowStyle);

// Asks the user for a file name.
//   defaultExtension  without the point, added to a name that has none
//   title             a list "description|pattern|description|pattern..." of the file types; a
//                     text without a bar is one description, whose pattern the extension gives
//   buffer, size      in: the proposed name; out: the chosen one
//   flags             -1: a name to save under, asks before an existing file is replaced;
//                     0: an existing file
//   caption           the window's caption; when empty, the first description is used
// Returns false when the user cancels; the buffer is then unchanged.
int16_t CORVANE_STDCALL ZTUtilPromptForName(char* defaultExtension, char* title, char* buffer,
                                            int32_t size, int32_t flags, char* caption);

// Distance between two points of the section plane, in the unit of the arguments.
float CORVANE_STDCALL Distance(float y1, float z1, float y2, float z2);

// Whether (y, z) is within `tolerance` of the straight segment from point 1 to point 2.
int16_t CORVANE_STDCALL IsPointInSegment(float y, float z, float y1, float z1, float y2, float z2,
                                         float tolerance);

// Whether two points are no farther apart than `tolerance`.
int16_t CORVANE_STDCALL IsSamePoint(float y, float z, float y2, float z2, float tolerance);
}

CORVANE_LATE_BOUND("ztutil32.dll", GetZTUtilVersion)
CORVANE_LATE_BOUND("ztutil32.dll", IsRegionalOK)
CORVANE_LATE_BOUND("ztutil32.dll", SetRegionalOK)
CORVANE_LATE_BOUND("ztutil32.dll", GetValsC)
CORVANE_LATE_BOUND("ztutil32.dll", GenerateID)
CORVANE_LATE_BOUND("ztutil32.dll", LoginName)
CORVANE_LATE_BOUND("ztutil32.dll", ShellAndWait)
CORVANE_LATE_BOUND("ztutil32.dll", ZTUtilPromptForName)
CORVANE_LATE_BOUND("ztutil32.dll", Distance)
CORVANE_LATE_BOUND("ztutil32.dll", IsPointInSegment)
CORVANE_LATE_BOUND("ztutil32.dll", IsSamePoint)
