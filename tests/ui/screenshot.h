// The whole screen as a picture, for tests that failed.
#pragma once

namespace corvane::ui {

// Writes failure_<test>.bmp beside the test program and names it in the test's output.
void KeepScreenshot();

}  // namespace corvane::ui
