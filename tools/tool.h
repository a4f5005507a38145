// The command line program `corvane`, but for its process: the entry of each system has the
// arguments and the streams (win32/main.cpp, host/main.cpp).
#pragma once

#include <span>
#include <string>

#include "tools/arguments.h"
#include "tools/console.h"

namespace corvane {

// Does what the arguments after the program's name ask for. Nothing is thrown.
ExitCode RunTool(std::span<const std::wstring> arguments, const ToolOutput& output);
// The same of a request that ReadRequest gave.
ExitCode RunRequest(const Request& request, const ToolOutput& output);

}  // namespace corvane
