// Texts that go with the Basic Ship Data, from the catalogue in BsdVelk.dll.
#pragma once

#include <cstdint>
#include <string>

namespace corvane {

inline constexpr int32_t kLabelNoName = 101;     // display name when a ship has none
inline constexpr int32_t kLabelNewShip = 102;    // display name in a new database
inline constexpr int32_t kLabelShipTypes = 500;  // + type 1..21
inline constexpr int32_t kLabelBsdCodes = 650;   // + code 1..3; itself for any other code
inline constexpr int32_t kLabelUnknownType = 1002;
inline constexpr int32_t kLabelAbout = 5000;  // text of the About window

// The label's text; "Bsd #" and the number when the catalogue has none.
std::wstring BsdLabel(int32_t number);

// Name of a ship type 1..21, else label 1002. With the rule set "QUOR MIL" (`milMode`) only types
// 5 and 19 have a name, all others an empty text.
std::wstring ShipTypeName(int type, bool milMode);

std::wstring BsdCodeLabel(int code);

}  // namespace corvane
