// What a program of the suite is asked to do: the command line that Corvane starts it with,
//
//     [/d] [/mil] [/JBP] "database" [model number]
//
// the switches in any order and place.
#pragma once

#include <cstdint>
#include <string>

namespace corvane::siblings {

struct Request {
    bool debug = false;         // switch "/d"
    bool mil = false;           // switch "/mil"
    bool jbp = false;           // switch "/JBP"
    std::wstring databasePath;  // absolute
    int32_t model = 0;          // number of the model, 1 the first; 0: none was given
};

// Reads a command line, the program's own name left out. A text in double quotes is never a switch;
// a database without blanks needs no quotes. Anything else than the form above is reported, and the
// result is false.
bool ReadRequest(const std::wstring& commandLine, Request& request);

// The switches that were given, as they stand on the command line; "none" without any.
std::wstring SwitchText(const Request& request);

}  // namespace corvane::siblings
