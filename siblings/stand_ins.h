// The programs of this folder. Each is built from siblings/win32/main.cpp and one of these records.
#pragma once

#include "siblings/form.h"

namespace corvane::siblings {

extern const StandIn kBsdEditor;      // message 203
extern const StandIn kSectionInput;   // message 204
extern const StandIn kSectionRule;    // message 205
extern const StandIn kBulkheadInput;  // BhdInput.exe
extern const StandIn kCsrRule;        // CsrCheck.exe
extern const StandIn kBulkheadRule;   // BhdCheck.exe
extern const StandIn kTorsionModel;   // TorModel.exe

}  // namespace corvane::siblings
