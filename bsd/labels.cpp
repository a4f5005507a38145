#include "bsd/labels.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/bsdvelk.h"
#include "platform/system.h"

namespace corvane {
namespace {

// Size of the buffer that the library fills; no label is longer.
constexpr int32_t kLabelBufferSize = 3000;

std::wstring MilShipTypeName(int type) {
    if (type == 5) return L"MIL Combat Ship";
    if (type == 19) return L"MIL Auxiliary Ship";
    return {};
}

}  // namespace

std::wstring BsdLabel(int32_t number) {
    std::array<char, kLabelBufferSize> buffer;
    const int32_t length = BsdVelk_LoadBsdString(number, buffer.data(), kLabelBufferSize);
    if (length <= 0) return L"Bsd #" + std::to_wstring(number);
    const auto kept = static_cast<size_t>(std::min(length, kLabelBufferSize));
    return system::WideFromAnsi(std::string_view(buffer.data(), kept));
}

std::wstring ShipTypeName(int type, bool milMode) {
    if (milMode) return MilShipTypeName(type);
    return BsdLabel(type >= 1 && type <= 21 ? kLabelShipTypes + type : kLabelUnknownType);
}

std::wstring BsdCodeLabel(int code) {
    return BsdLabel(code >= 1 && code <= 3 ? kLabelBsdCodes + code : kLabelBsdCodes);
}

}  // namespace corvane
