// BsdVelk.dll of a version that is too old.
#include "platform/bsdvelk.h"

CORVANE_EXPORT float CORVANE_STDCALL GetBsdVelkVersion() {
    return 4.9F;
}
