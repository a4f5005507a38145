// The suite's other programs: where they are, their command lines, and running them on the open
// database.
//
// While a program runs the shell is locked and touches no file. Afterwards the database is read
// again; a program that could not be started or crashed, and a database that the program left
// missing, read-only or damaged, are reported, and the shell continues.
#pragma once

#include <cstdint>
#include <string>

#include "database/model_kind.h"
#include "files/running.h"
#include "shell/edit_history.h"

namespace corvane {

// ---- Paths and command lines -------------------------------------------------------------------

// In DataDirectory. With the rule set "CSR for BC" a section has its own rule program.
std::wstring InputProgramPath(ModelKind kind);
std::wstring RuleProgramPath(ModelKind kind);
std::wstring BsdProgramPath();

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
// status line, and then what is open in which program. False when nothing was tried: a program that
// is missing (message 1020), a DataDirectory that is not a full path (kMsgDataDirectoryRefused),
// and a path that cannot be passed on in the code page of the programs (kMsgPathNotPassedOn), are
// reported.
bool RunProgram(ProgramRun& run, int32_t model = kNoModel);
// Whether the database's file has another date and time than before the run, or is gone.
bool HasDatabaseChanged(const ProgramRun& run);

// Shows the database as the program left it, and reports what went wrong.
void ShowAfterRun(const ProgramRun& run);
// The report alone; called when the window shows the database again.
void ReportRun(const ProgramRun& run);

}  // namespace corvane
