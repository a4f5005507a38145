#include "shell/commands/create_commands.h"

#include "database/model_kind.h"
#include "database/scanning.h"
#include "shell/state.h"
#include "shell/suite_programs.h"

namespace corvane {
namespace {

void Create(ModelKind kind) {
    const int count = CountModels(shell.database.path);
    shell.suppressListEvents = true;
    ProgramRun run;
    run.program = InputProgramPath(kind);
    const bool wasTried = RequireReadyForModels() && RunProgram(run);
    shell.suppressListEvents = false;
    if (CountModels(shell.database.path) > count) SelectLastModelNext();
    if (wasTried) ShowAfterRun(run);
}

}  // namespace

void ME_SectionNew_Click() {
    Create(ModelKind::kSection);
}

void ME_NewBulkhead_Click() {
    Create(ModelKind::kBulkhead);
}

void ME_NewTorsion_Click() {
    Create(ModelKind::kTorsion);
}

}  // namespace corvane
