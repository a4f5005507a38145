// The suite's other programs: where they are, their command lines, and running them on the open
// database.
//
// While a program runs the shell is locked and touches no file. Afterwards the database is read
// again; a program that could not be started or crashed, and a database that the program left
// missing, read-only or damaged, are reported, and the shell continues.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "database/model_kind.h"
#include "files/running.h"
#include "shell/edit_history.h"

namespace corvane {

// ---- Paths and command lines -------------------------------------------------------------------

// In DataDirectory. With the rule set "CSR for BC" a section has its own rule program.
std::wstring InputProgramPath(ModelKind kind);
std::wstring RuleProgramPath(ModelKind kind);
std::wstring BsdProgramPath();

// The file names of all programs that the shell starts.
std::vector<std::wstring> SuitePrograms();

// "/d ", "/mil ", "/JBP ", in this order, as far as they are set.
std::wstring SwitchString();

// The number that is on no command line: a program that gets none creates a model.
inline constexpr int32_t kNoModel = 0;

// What a program is started with: its path, the switches, the open database, and a model's number,
// from 1 on. The program's path is never quoted, the database's always.
std::wstring CommandLine(const std::wstring& program, int32_t model = kNoModel);

// ---- Running -----------------------------------------------------------------------------------

// Runs a command line with the main window locked, and sets the option of OP_Rule again that was
// set before.
RunResult RunAndWait(const std::wstring& commandLine);

// One run of a program, from its preparation to the report.
struct ProgramRun {
    std::wstring program;
    RunResult result;
    // The database before the run.
    bool wasDatabase = false;
    bool wasReadOnly = false;
    int64_t modified = 0;
    KeptForRun kept;  // in the history
};

// What a program for models requires: the open database's file, and a valid ship record. What is
// missing is reported.
bool RequireReadyForModels();

// Runs `run.program` on the open database, for a model or without one, with message 622 in the
// status line, and then what is open in which program. A program that is missing (message 1020), or
// whose DataDirectory is not a full path (kMsgDataDirectoryRefused), is reported with the offer to
// look for it; the folder in which the user finds it becomes DataDirectory. False when nothing was
// tried: there is no such program, or a path cannot be passed on in the code page of the programs
// (kMsgPathNotPassedOn), which is reported.
bool RunProgram(ProgramRun& run, int32_t model = kNoModel);
// Whether the database's file has another date and time than before the run, or is gone.
bool HasDatabaseChanged(const ProgramRun& run);

// Shows the database as the program left it, and reports what went wrong.
void ShowAfterRun(const ProgramRun& run);
// The report alone; called when the window shows the database again.
void ReportRun(const ProgramRun& run);

}  // namespace corvane
