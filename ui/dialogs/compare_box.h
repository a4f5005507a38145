// The box of a comparison: what differs, the values that differ in the selected model, its picture,
// and buttons that import models, and copy and save all of it. The user can size it.
#pragma once

#include "shell/comparison.h"

namespace corvane {

// An import makes `comparison` a new one.
void ShowComparison(Comparison& comparison);

}  // namespace corvane
