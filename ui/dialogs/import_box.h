// FM_Inport, the box that asks which sections or models of another database are imported.
#pragma once

#include <string>

#include "shell/exchange_boxes.h"

namespace corvane {

// With this tag of the list of sections, a file can be accepted without any of them.
inline constexpr wchar_t kTagWithoutSections[] = L"Cancel";

// Shows the box. True with OK: `choice` is filled in. Otherwise it is left as it was.
bool AskImport(ImportChoice& choice, const std::wstring& sectionsTag = {});

}  // namespace corvane
