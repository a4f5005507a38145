// GrVelk.dll with the whole catalogue, and versions that the build names.
#include "platform/grvelk.h"

CORVANE_EXPORT float CORVANE_STDCALL GetGrVelkDataVersion() {
    return DATA_VERSION;
}
CORVANE_EXPORT float CORVANE_STDCALL GetGrVelkBhaVersion() {
    return BHA_VERSION;
}
