// The commands of the Edit menu that change the database or the clipboard. Undo and Redo put an
// earlier text of the open database back, through the way of every edit (shell/edit_history.h);
// what fails is reported, and the file is as it was.
#pragma once

namespace corvane {

void ME_EditUndo_Click();
void ME_EditRedo_Click();
void ME_EditCopyList_Click();
void ME_EditCopyPicture_Click();

}  // namespace corvane
