// The labels that go with the Basic Ship Data.
#include "companions/catalogue.h"
#include "platform/bsdvelk.h"

namespace {

#define LABEL(number, meaning, text) corvane::catalogue::Entry{number, text},
constexpr auto kLabels = std::to_array<corvane::catalogue::Entry>({
#include "companions/bsdvelk/labels.txt"
});
#undef LABEL

static_assert(corvane::catalogue::IsWellFormed(kLabels));

}  // namespace

CORVANE_EXPORT int32_t CORVANE_STDCALL BsdVelk_LoadBsdString(int32_t number, char* buffer,
                                                             int32_t size) {
    return corvane::catalogue::CopyText(kLabels, number, buffer, size);
}

CORVANE_EXPORT float CORVANE_STDCALL GetBsdVelkVersion() {
    return 5.0F;
}
