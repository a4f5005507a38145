// The box that shows how far a long operation is, over the window that started it, which accepts no
// input meanwhile. It is not a dialog that runs: the operation goes on, and looks in from time to
// time.
#pragma once

namespace corvane {

// Shows the per cent that are done, paints what waits to be painted, and handles the user's keys
// and clicks in the box. Whether the user wants to cancel: Cancel, Esc, or the box closed.
// kNoProgress takes the box away; harmless without one.
bool ShowProgress(int percent);

}  // namespace corvane
