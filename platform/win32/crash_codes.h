// The exceptions by which the program ends itself; debuggers and Windows show these numbers.
#pragma once

#include "platform/win32/win32.h"

namespace corvane::system {

inline constexpr DWORD kAborted = 0xE0000001;     // abort(): an assertion has failed
inline constexpr DWORD kTerminated = 0xE0000002;  // an exception that nobody catches

}  // namespace corvane::system
