#include "platform/ztvelk32.h"

CORVANE_EXPORT float CORVANE_STDCALL getztvelk32version() {
    return 2.0F;
}
