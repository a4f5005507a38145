// GrVelk.dll that lacks a function.
#include "platform/grvelk.h"

CORVANE_EXPORT float CORVANE_STDCALL GetGrVelkDataVersion() {
    return 2.002F;
}
