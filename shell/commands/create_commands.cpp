#include "shell/commands/create_commands.h"

#include <algorithm>
#include <limits>

#include "database/database_file.h"
#include "shell/state.h"
#include "shell/suite_programs.h"

namespace corvane {
namespace {

// Model numbers are 16-bit.
int16_t ModelCount() {
    constexpr int kMost = std::numeric_limits<int16_t>::max();
    return static_cast<int16_t>(std::min(CountModels(shell.database.path), kMost));
}

void Create(ModelKind kind) {
    const int16_t count = ModelCount();
    shell.suppressListEvents = true;
    ProgramRun run;
    run.program = InputProgramPath(kind);
    const bool wasTried = RequireReadyForModels() && RunProgram(run);
    shell.suppressListEvents = false;
    const int16_t countAfter = ModelCount();
    if (countAfter > count) SetCurrentModel(countAfter);
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
