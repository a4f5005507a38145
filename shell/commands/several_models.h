// Copy, Delete and Export with more than one model selected, after one question. All of the models
// or none are copied or deleted, in one rewrite and one step of the history. The file is read
// before and after the question, as for one model (shell/commands/section_commands.h).
#pragma once

namespace corvane {

bool AreSeveralSelected();

// Each copy is named "Copy of " and the model's name; the last copy becomes the current model.
void CopySelectedModels();
// With a backup of the file when the settings' IntegerSetting is not 0. The model after the first
// one that goes becomes the current one.
void DeleteSelectedModels();
// Into new slots of a legacy database, in the order of the file, each with its own name. A model
// that is not a section is reported, and nothing is exported. What was exported before a section
// that fails stays there.
void ExportSelectedModels();

}  // namespace corvane
