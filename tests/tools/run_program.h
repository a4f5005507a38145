// Runs the command line program as a process of its own.
#pragma once

#include <string>
#include <vector>

namespace corvane::test {

struct ProgramRun {
    int status = -1;  // the exit status; -1: not started, or it did not end by itself
    std::string out;  // the bytes of standard output
    std::string err;  // and of standard error
};

// The program beside this test program, in the current directory.
ProgramRun RunProgram(const std::vector<std::wstring>& arguments);

// The same on the host, while standard output is a full disk.
ProgramRun RunProgramOnFullDisk(const std::vector<std::wstring>& arguments);
// A copy of it in a folder without the companion libraries, on the host.
ProgramRun RunProgramAlone(const std::vector<std::wstring>& arguments);

}  // namespace corvane::test
