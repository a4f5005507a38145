// What the commands of the command line program print, and the reporters' screen for them: what a
// box would show goes to standard error, and what a box would ask is answered by --force.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "database/listing.h"
#include "platform/system.h"
#include "preview/figure.h"
#include "tools/arguments.h"

namespace corvane {

using FigureWriter = system::ErrorNumber (*)(const Figure& figure, const std::wstring& path);

// The two streams of the process, and what its system can do; whoever has them fills the record in.
// Lines end with a line feed.
struct ToolOutput {
    // Standard output; false when it cannot be written.
    bool (*print)(std::wstring_view text) = [](std::wstring_view) { return true; };
    void (*complain)(std::wstring_view text) = [](std::wstring_view) {};
    // Finds what writes a PNG file of 300 dots per inch; null where the system has nothing for it.
    FigureWriter (*findPngWriter)() = []() -> FigureWriter { return nullptr; };
};

// Of the request that is being carried out.
struct ToolState {
    ToolOutput output;
    std::wstring printed;  // goes to standard output when the command has ended
    bool isForced = false;
    int complaints = 0;  // how many were shown
    std::wstring caption;
    std::vector<ModelEntry> models;  // of the open database, with their positions
    // Absolute paths, as the reporters have them, and as the user gave them.
    std::vector<std::pair<std::wstring, std::wstring>> paths;
};
extern ToolState toolState;

// From now on the program shows itself through `output`; nothing is left of an earlier request.
void UseConsole(const ToolOutput& output);

// Adds to what is printed at the end of the command.
void Print(std::wstring_view text);
// Prints it. False when standard output cannot be written, which is reported.
bool PrintAll();
// "corvane: " and a text of one or more lines, on standard error. What controls a terminal becomes
// "?".
void Complain(const std::wstring& text);
// What is wrong with the arguments, with the usage line of the request's command.
ExitCode ComplainOfUsage(const Request& request, const std::wstring& fault);

// Whether --force was given; reported when not, with what it would do: "replace ...".
bool RequireForce(const std::wstring& what);

// The absolute path of an operand. False, and reported, for the name of a device.
bool RequirePath(const std::wstring& operand, std::wstring& path);
// A file may be written: it is not there, or --force was given. Reported when not, and when it is
// the same file as `source`.
bool RequireFree(const std::wstring& path, const std::wstring& source);

// Opens the database of a command (shell/open_database.h), with its ship's data and its models.
// What cannot be opened is reported.
bool OpenForCommand(const std::wstring& operand);

}  // namespace corvane
