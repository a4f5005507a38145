// The commands of the Create menu: each starts the input program of a kind of model on the open
// database, without a model. When the number of models grew, the new last one becomes the current
// one; otherwise the one before stays. suppressListEvents is set meanwhile.
#pragma once

namespace corvane {

void ME_SectionNew_Click();
void ME_NewBulkhead_Click();
void ME_NewTorsion_Click();

}  // namespace corvane
