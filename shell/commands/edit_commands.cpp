#include "shell/commands/edit_commands.h"

#include "shell/edit_history.h"

namespace corvane {

void ME_EditUndo_Click() {
    if (RequireEditable()) UndoEdit();
}

void ME_EditRedo_Click() {
    if (RequireEditable()) RedoEdit();
}

}  // namespace corvane
