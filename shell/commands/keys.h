// Keys of the keyboard that run commands: which key with which modifiers, where in the main window
// it acts, and how menus and the documentation write it.
#pragma once

#include <cstdint>
#include <string>

namespace corvane {

// Codes of keys that are neither letters nor digits; they are Windows' own.
enum KeyCode : uint16_t {
    kNoKey = 0,
    kEnterKey = 0x0D,
    kLeftKey = 0x25,
    kUpKey = 0x26,
    kRightKey = 0x27,
    kDownKey = 0x28,
    kDeleteKey = 0x2E,
    kF1Key = 0x70,
    kF2Key = 0x71,
    kF5Key = 0x74,
    kF6Key = 0x75,
    kF11Key = 0x7A,
    kPlusKey = 0xBB,  // of the row of digits, whatever is on it
    kMinusKey = 0xBD,
};

enum class KeyReach {
    kWindow,   // wherever the focus is
    kNotText,  // but not in a field for typing, which uses it itself
    kList      // in the list of models alone
};

struct Key {
    uint16_t code = kNoKey;  // of a letter or a digit: the capital
    bool control = false;
    bool shift = false;
    bool alt = false;
    KeyReach reach = KeyReach::kWindow;
};

// The same key with the same modifiers.
bool IsSameKey(const Key& one, const Key& other);

// What has the focus, as far as keys care.
enum class FocusOn { kList, kTextField, kOther };
bool Acts(const Key& key, FocusOn focus);

// As menus show it: "Ctrl+Shift+S", "F5", "Del". Empty for no key.
std::wstring KeyText(const Key& key);

}  // namespace corvane
