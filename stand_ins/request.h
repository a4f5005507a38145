// What a program of the suite is asked to do. Corvane starts it with the command line
//
//     [/d] [/mil] [/JBP] "database" [model number]
//
// The switches may be anywhere, in any order.
#pragma once

#include <cstdint>
#include <string>

namespace corvane::stand_ins {

struct Request {
    bool debug = false;         // switch "/d"
    bool mil = false;           // switch "/mil"
    bool jbp = false;           // switch "/JBP"
    std::wstring databasePath;  // absolute
    int32_t model = 0;          // number of the model, from 1; 0: not given
};

// Reads a command line without the program's own name. A text in double quotes is never a switch; a
// database without blanks needs no quotes. Any other form than the one above is reported, and the
// result is false.
bool ReadRequest(const std::wstring& commandLine, Request& request);

// The given switches as they are written on the command line; "none" without any.
std::wstring SwitchText(const Request& request);

}  // namespace corvane::stand_ins
