// The only way to windows.h. It renames our procedures through macros; those macros go here, so a
// Windows function of such a name is called by its full name, GetMessageW and so on.
#pragma once

#include <windows.h>

#undef FormatMessage
#undef GetCurrentTime
#undef GetMessage
#undef ReplaceFile
