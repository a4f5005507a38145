#include "shell/commands/keys.h"

#include <utility>

namespace corvane {
namespace {

std::wstring NameOf(uint16_t code) {
    constexpr std::pair<uint16_t, const wchar_t*> kNames[] = {
        {kEnterKey, L"Enter"}, {kLeftKey, L"Left"},  {kUpKey, L"Up"},  {kRightKey, L"Right"},
        {kDownKey, L"Down"},   {kDeleteKey, L"Del"}, {kPlusKey, L"+"}, {kMinusKey, L"-"}};
    for (const auto& [named, name] : kNames) {
        if (named == code) return name;
    }
    constexpr uint16_t kF12Key = kF1Key + 11;
    if (code >= kF1Key && code <= kF12Key) return L'F' + std::to_wstring(code - kF1Key + 1);
    return {static_cast<wchar_t>(code)};
}

}  // namespace

bool IsSameKey(const Key& one, const Key& other) {
    return one.code == other.code && one.control == other.control && one.shift == other.shift &&
           one.alt == other.alt;
}

bool Acts(const Key& key, FocusOn focus) {
    if (key.reach == KeyReach::kList) return focus == FocusOn::kList;
    return key.reach == KeyReach::kWindow || focus != FocusOn::kTextField;
}

std::wstring KeyText(const Key& key) {
    std::wstring text;
    if (key.code == kNoKey) return text;
    if (key.control) text += L"Ctrl+";
    if (key.alt) text += L"Alt+";
    if (key.shift) text += L"Shift+";
    return text + NameOf(key.code);
}

}  // namespace corvane
