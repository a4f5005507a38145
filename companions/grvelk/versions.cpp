// The versions of the data that the library understands; the shell asks for exactly these.
#include "platform/grvelk.h"

CORVANE_EXPORT float CORVANE_STDCALL GetGrVelkDataVersion() {
    return 2.002F;
}

CORVANE_EXPORT float CORVANE_STDCALL GetGrVelkBhaVersion() {
    return 0.443F;
}
