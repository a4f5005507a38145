// ztutil32.dll of a version that is too old.
#include "platform/ztutil32.h"

CORVANE_EXPORT float CORVANE_STDCALL GetZTUtilVersion() {
    return 3.72F;
}
