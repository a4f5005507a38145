// The commands of the command line program: one table, which the program, its help and its page of
// the manual follow.
#pragma once

#include <span>
#include <string>

#include "tools/arguments.h"

namespace corvane {

// In the order of the help.
std::span<const ToolCommand> ToolCommands();

// "usage: corvane list DATABASE ...", a line. Of null: of the program.
std::wstring UsageLine(const ToolCommand* command);
// What --help prints. Of null: about the program and all its commands.
std::wstring HelpText(const ToolCommand* command);

// ---- The procedures of the table ---------------------------------------------------------------
// They have been given a request whose operands and options fit their command. What is wrong is
// reported on the way.

ExitCode RunList(const Request& request);        // tools/show_models.cpp
ExitCode RunShow(const Request& request);        // tools/show_models.cpp
ExitCode RunCheck(const Request& request);       // tools/check.cpp
ExitCode RunCompare(const Request& request);     // tools/compare.cpp
ExitCode RunRepair(const Request& request);      // tools/repair.cpp
ExitCode RunExtract(const Request& request);     // tools/edit_models.cpp
ExitCode RunAppend(const Request& request);      // tools/edit_models.cpp
ExitCode RunDelete(const Request& request);      // tools/edit_models.cpp
ExitCode RunRenumber(const Request& request);    // tools/edit_models.cpp
ExitCode RunShipShow(const Request& request);    // tools/ship_data.cpp
ExitCode RunShipImport(const Request& request);  // tools/ship_data.cpp
ExitCode RunConvert(const Request& request);     // tools/convert.cpp
ExitCode RunDraw(const Request& request);        // tools/draw.cpp

}  // namespace corvane
