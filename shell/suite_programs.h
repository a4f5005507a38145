// The suite's other programs: where they lie, what they are told, and the commands that run them on
// the open database.
//
// While a program runs the shell is locked and touches no file. Afterwards the database is read
// anew; a program that could not be started or crashed, and a database that the program left
// missing, read-only or damaged, are reported, and the shell goes on.
#pragma once

#include <cstdint>
#include <string>

#include "database/model_kind.h"
#include "files/running.h"

namespace corvane {

// ---- Paths and command lines -------------------------------------------------------------------

// In DataDirectory. With the rule set "CSR for BC" a section has a rule program of its own.
std::wstring InputProgramPath(ModelKind kind);
std::wstring RuleProgramPath(ModelKind kind);
std::wstring BsdProgramPath();

// "/d ", "/mil ", "/JBP ", in this order, as far as they are set.
std::wstring SwitchString();

// The program's path is never quoted, the database's always.
std::wstring EditCommandLine(const std::wstring& program);  // with a model number from 1 on only
std::wstring RuleCommandLine(const std::wstring& program);
std::wstring BsdCommandLine(const std::wstring& program);

// ---- Running -----------------------------------------------------------------------------------

// Runs a command line with the main window locked, and sets the option of OP_Rule again that was
// set before.
RunResult RunAndWait(const std::wstring& commandLine);

// One run of a program, from its preparation to the report.
struct ProgramRun {
    std::wstring program;
    std::wstring commandLine;
    RunResult result;
    // The database before the run.
    bool wasDatabase = false;
    bool wasReadOnly = false;
    int64_t modified = 0;
};

// Runs the program with message 622 in the status line. False when nothing was tried: a program
// that is missing (message 1020), and a path that the code page of the programs can't tell
// (kMsgPathNotTold), are reported.
bool RunProgram(ProgramRun& run);
// Whether the database's file has another date and time than before the run, or is gone.
bool HasDatabaseChanged(const ProgramRun& run);
// Tells the user of what went wrong; called when the window shows the database again.
void ReportRun(const ProgramRun& run);

// ---- Commands ----------------------------------------------------------------------------------

// Edits the current model in the input program of its kind.
void ME_SectionInput_Click();
// Checks the current model in the rule program of its kind.
void ME_SectionVelkRule_Click();
// Create a model in the input program of a kind. When the number of models grew, the new last one
// becomes the current one; otherwise the one before stays. suppressListEvents is set meanwhile.
void ME_SectionNew_Click();
void ME_NewBulkhead_Click();
void ME_NewTorsion_Click();

}  // namespace corvane
