// GrVelk.dll: the suite's geometry and drawing library, and the catalogue of messages.
#pragma once

#include "platform/companion.h"

extern "C" {

// Copies the text of message `number` into `buffer` (`size` bytes, NUL-terminated ANSI, cut when
// longer). Returns the length of the copied text, 0 when there is no such message.
int32_t CORVANE_STDCALL ZTGrVel32_LoadVelkinString(int32_t number, char* buffer, int32_t size);

// Version of the section data; the shell asks for exactly 2.002.
float CORVANE_STDCALL GetGrVelkDataVersion();

// Version of the bulkhead data; the shell asks for exactly 0.443.
float CORVANE_STDCALL GetGrVelkBhaVersion();
}

CORVANE_LATE_BOUND("GrVelk.dll", ZTGrVel32_LoadVelkinString)
CORVANE_LATE_BOUND("GrVelk.dll", GetGrVelkDataVersion)
CORVANE_LATE_BOUND("GrVelk.dll", GetGrVelkBhaVersion)
