// The entry of every stand-in; CORVANE_STAND_IN is the name of its record.
#include "platform/win32/win32.h"
#include "stand_ins/stand_ins.h"
#include "stand_ins/win32/form_window.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return corvane::stand_ins::RunStandIn(corvane::stand_ins::CORVANE_STAND_IN);
}
