// The windows of the program of the suite that this program waits for.
#pragma once

namespace corvane {

// Brings the topmost window of the programs that this one has started to the front; nothing happens
// while they show none.
void BringChildToFront();

}  // namespace corvane
