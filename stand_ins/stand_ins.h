// The programs of this folder. Each is built from stand_ins/win32/stand_in_main.cpp and one of
// these records.
#pragma once

#include "stand_ins/form.h"

namespace corvane::stand_ins {

extern const StandIn kBsdEditor;      // message 203
extern const StandIn kSectionInput;   // message 204
extern const StandIn kSectionRule;    // message 205
extern const StandIn kBulkheadInput;  // BhdInput.exe
extern const StandIn kCsrRule;        // CsrCheck.exe
extern const StandIn kBulkheadRule;   // BhdCheck.exe
extern const StandIn kTorsionModel;   // TorModel.exe

}  // namespace corvane::stand_ins
