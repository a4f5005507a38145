// ZTVelk32.dll of a version that is too old.
#include "platform/ztvelk32.h"

CORVANE_EXPORT float CORVANE_STDCALL getztvelk32version() {
    return 1.5F;
}
