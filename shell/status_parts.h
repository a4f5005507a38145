// What the status bar shows beside its message.
#pragma once

#include <string>

namespace corvane {

struct StatusParts {
    std::wstring models;   // "14 models", "9 of 14 models"; empty without a database
    std::wstring file;     // when it was saved, or that it is read-only, or not there
    std::wstring ruleSet;  // "QUOR"
};
StatusParts CurrentStatusParts();

// The window's caption and the parts, as the state of the program has them now.
void ShowCaptionAndParts();

}  // namespace corvane
