// The host has no file prompt: the environment variable CORVANE_PROMPT_ANSWER answers for the
// user; without it the user cancels.
#include <cstdlib>

#include "companions/ztutil32/boolean.h"
#include "companions/ztutil32/texts.h"
#include "platform/ztutil32.h"

CORVANE_EXPORT int16_t CORVANE_STDCALL ZTUtilPromptForName(char*, char*, char* buffer, int32_t size,
                                                           int32_t, char*) {
    const char* answer = std::getenv("CORVANE_PROMPT_ANSWER");
    if (answer == nullptr || *answer == '\0') return corvane::ztutil::Boolean(false);
    corvane::ztutil::CopyText(answer, buffer, size);
    return corvane::ztutil::Boolean(true);
}
