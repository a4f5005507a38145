// The entry of every stand-in; CORVANE_STAND_IN names the one that is built.
#include "platform/win32/win32.h"
#include "siblings/stand_ins.h"
#include "siblings/win32/window.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return corvane::siblings::RunStandIn(corvane::siblings::CORVANE_STAND_IN);
}
