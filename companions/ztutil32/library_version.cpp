#include "platform/ztutil32.h"

CORVANE_EXPORT float CORVANE_STDCALL GetZTUtilVersion() {
    return 3.73F;
}
