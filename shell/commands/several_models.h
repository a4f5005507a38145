// Copy and Delete with more than one model selected: one question, one rewrite, one step of the
// history. All of the models or none are copied or deleted. The file is read before and after the
// question, as for one model (shell/commands/section_commands.h).
#pragma once

namespace corvane {

bool AreSeveralSelected();

// Each copy is named "Copy of " and the model's name; the last copy becomes the current model.
void CopySelectedModels();
// With a backup of the file when the settings' IntegerSetting is not 0. The model after the first
// one that goes becomes the current one.
void DeleteSelectedModels();

}  // namespace corvane
