// The only way to windows.h. It renames our procedures through macros; those macros go here, so a
// Windows function of such a name is called by its full name, GetMessageW and so on.
#pragma once

#include <windows.h>

#undef FormatMessage
#undef GetCurrentTime
#undef GetMessage
#undef ReplaceFile

namespace corvane {

// The function at an address that the system found by its name; null for null. Its signature is the
// caller's word: the address has none.
template <class Signature>
Signature* AsFunction(FARPROC address) {
    return reinterpret_cast<Signature*>(reinterpret_cast<void (*)()>(address));
}

}  // namespace corvane
