// Running another program, and the file prompt.
#pragma once

#include <cstdint>
#include <string>

#include "platform/system.h"

namespace corvane {

// What is known of a program that was run.
struct RunResult {
    system::ErrorNumber error = system::kErrorNone;  // why nothing was started
    bool crashed = false;                            // its own fault ended it
    bool HasRun() const { return error == system::kErrorNone; }
};

// Runs a program and returns when it has ended, with the hourglass meanwhile. `childRunning` is
// true exactly while it runs. `workDir`, when not empty, is the current directory during the run.
// When nothing was started the debug report gets the context "ExShell (" commandLine ")".
RunResult RunAndWait(const std::wstring& commandLine, int16_t windowStyle, bool& childRunning,
                     const std::wstring& workDir = {});

// The texts of the file prompt; the library may change them all.
struct FilePrompt {
    std::wstring defaultExtension;
    std::wstring fileName;  // proposed
    std::wstring caption;
    std::wstring title;  // file types: see ZTUtilPromptForName
    int32_t flags = 0;   // -1: to save, asks before it overwrites; 0: an existing file
};

// The chosen file's name, "" when the user cancelled.
std::wstring PromptForFileName(FilePrompt& prompt);

}  // namespace corvane
