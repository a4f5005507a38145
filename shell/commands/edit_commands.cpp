#include "shell/commands/edit_commands.h"

#include "report/reporters.h"
#include "shell/edit_history.h"
#include "shell/list_text.h"
#include "shell/picture_file.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {

void ME_EditUndo_Click() {
    if (RequireEditable()) UndoEdit();
}

void ME_EditRedo_Click() {
    if (RequireEditable()) RedoEdit();
}

void ME_EditCopyList_Click() {
    if (!shell.view.copyText(ListAsText(), ListAsHtml())) return ReportMessage(kMsgNotCopied);
    ReportNote(kMsgListCopied, {ListedCount()});
}

void ME_EditCopyPicture_Click() {
    SetBusyPointer();
    const bool isCopied = shell.view.copyPicture(PictureShown());
    ResetMousePointer();
    if (!isCopied) return ReportMessage(kMsgNotCopied);
    ReportNote(kMsgPictureCopied, {ShownModelName()});
}

}  // namespace corvane
