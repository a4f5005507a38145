// Names of files on their way to Windows, for the files of this folder.
#pragma once

#include <string>

#include "platform/system.h"

namespace corvane::system {

// The name to hand to Windows: unchanged where it is short, else absolute and with the prefix that
// lifts the limit of 260 characters.
std::wstring NativePath(const std::wstring& path);

// The error of the call before when it failed, kErrorNone when it succeeded.
ErrorNumber ErrorOf(bool succeeded);

}  // namespace corvane::system
