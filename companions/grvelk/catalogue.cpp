// The catalogue of messages.
#include "companions/catalogue.h"

#include "platform/grvelk.h"

namespace {

#define MESSAGE(number, meaning, arguments, text) corvane::catalogue::Entry{number, text},
constexpr auto kMessages = std::to_array<corvane::catalogue::Entry>({
#include "companions/grvelk/messages.txt"
});
#undef MESSAGE

static_assert(corvane::catalogue::IsWellFormed(kMessages));

}  // namespace

CORVANE_EXPORT int32_t CORVANE_STDCALL ZTGrVel32_LoadVelkinString(int32_t number, char* buffer,
                                                                  int32_t size) {
    return corvane::catalogue::CopyText(kMessages, number, buffer, size);
}
