// BsdVelk.dll: the catalogue of texts that go with the Basic Ship Data.
#pragma once

#include "platform/companion.h"

extern "C" {

// Copies the text of label `number` into `buffer` (`size` bytes, NUL-terminated ANSI, cut when
// longer). Returns the length of the copied text, 0 when there is no such label.
int32_t CORVANE_STDCALL BsdVelk_LoadBsdString(int32_t number, char* buffer, int32_t size);

// Version of the library; the shell asks for 5.0 or more.
float CORVANE_STDCALL GetBsdVelkVersion();
}

CORVANE_LATE_BOUND("BsdVelk.dll", BsdVelk_LoadBsdString)
CORVANE_LATE_BOUND("BsdVelk.dll", GetBsdVelkVersion)
