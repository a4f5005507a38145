// The box Properties: what a model is, in a field from which it can be copied.
#pragma once

#include <string>

namespace corvane {

// `text` has lines "label tab value", ended by carriage returns.
void ShowProperties(const std::wstring& caption, const std::wstring& text);

}  // namespace corvane
