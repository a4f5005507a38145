// The system's prompt for a folder.
#pragma once

#include <string>

namespace corvane {

// `folder` is where it begins, and becomes the one that was chosen. False when the user cancels.
bool AskFolder(const std::wstring& title, std::wstring& folder);

}  // namespace corvane
